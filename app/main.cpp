// Kelvane: passage planner and secondary navigation aid.
#include <QApplication>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  return 0;
}
