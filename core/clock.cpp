#include "core/clock.h"

namespace kelvane {

std::tm LocalNow() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace kelvane
