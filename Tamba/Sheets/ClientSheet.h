#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

#include <string>

namespace tamba {

class ClientForm;

/// A new client.
class ClientSheet : public Sheet {
    Q_OBJECT

public:
    /// `name`: what was typed already.
    ClientSheet(QWidget* parent, const Library& library, const std::string& name = {});
    [[nodiscard]] Client client() const;

private:
    ClientForm* form_;
};

}  // namespace tamba
