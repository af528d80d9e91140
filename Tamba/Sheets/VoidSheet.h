#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

#include <string>

class QLineEdit;

namespace tamba {

/// Voids a document: why, and what that means.
class VoidSheet : public Sheet {
    Q_OBJECT

public:
    VoidSheet(QWidget* parent, const Library& library, const Document& document, Day today);
    [[nodiscard]] std::string reason() const;

private:
    QLineEdit* reason_;
};

}  // namespace tamba
