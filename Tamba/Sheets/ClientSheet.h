#pragma once

#include "Tamba/Sheets/Sheet.h"
#include "TambaCore/Model/Models.h"

namespace tamba {

class ClientForm;

/// A new client.
class ClientSheet : public Sheet {
    Q_OBJECT

public:
    ClientSheet(QWidget* parent, const Library& library);
    [[nodiscard]] Client client() const;

private:
    ClientForm* form_;
};

}  // namespace tamba
