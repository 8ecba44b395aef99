// The main window library starts here; see mainwindow.h once it exists.
