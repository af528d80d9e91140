#pragma once

#include "Tamba/Sheets/Sheet.h"

#include <filesystem>

namespace tamba {

/// Which Tamba this is, under which licence, and where the open books are.
class AboutSheet : public Sheet {
    Q_OBJECT

public:
    AboutSheet(QWidget* parent, const std::filesystem::path& folder);
};

}  // namespace tamba
