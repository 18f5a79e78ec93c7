// The component as it is shipped: the system's own clock and printer.
#include "component/com/substitutes.h"

namespace chartproject::win32 {

Substitutes TheSubstitutes() {
  return {};
}

}  // namespace chartproject::win32
