#include "platform/Process.h"

namespace lamcraft::platform {

void weatherFaults() {}

}  // namespace lamcraft::platform
