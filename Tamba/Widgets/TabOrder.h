#pragma once

class QWidget;

/// Tab goes as the eye does: through the layouts of a window as they stand at that moment, so that what came up later
/// has its place and what is hidden has none. Windows and sheets ask for it where Qt asks them.
namespace tamba::TabOrder {

/// Gives the keys to the control after the one that has them, or before it; around at the end. False where the window
/// has none.
bool move(QWidget& window, bool next);

}  // namespace tamba::TabOrder
