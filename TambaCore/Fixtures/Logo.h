#pragma once

#include "TambaCore/Pages/Images.h"

namespace tamba::Fixtures {

/// The mark of the sample studio, ink on turmeric.
[[nodiscard]] Image logo();

}  // namespace tamba::Fixtures
