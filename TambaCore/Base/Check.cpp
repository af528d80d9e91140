#include "TambaCore/Base/Check.h"

#include <cstdio>
#include <cstdlib>

namespace tamba {

void fatal(const char* why) {
    std::fprintf(stderr, "Tamba stopped: %s\n", why);
    std::abort();
}

}  // namespace tamba
