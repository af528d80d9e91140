#pragma once

#include "TambaCore/Receipts/ReceiptReader.h"

/// The English model does not know ₹ and reads one that touches its figure as another digit: ₹473.00 becomes 2473.00.
/// Text alone cannot tell; the picture can.
namespace tamba::RupeeSign {

/// True for the shape of ₹ in the box: two separate bars in the upper part and none at the foot. Digits 5, 6 and 9 may
/// pass for it: ask only where a 2, 3, 7, %, X, Z or T was read.
[[nodiscard]] bool isAt(const Raster& grey, const TextBox& box);

}  // namespace tamba::RupeeSign
