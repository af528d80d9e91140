#pragma once

#include "TambaCLI/Commands.h"

#include <optional>
#include <string>

/// `tamba-cli bank`: statements.
namespace tamba::cli {

struct StatementOptions {
    std::string file, currency;
    std::optional<DateOrder> order;
};
/// Touches no books.
int parseStatement(const Context& context, const StatementOptions& options);

}  // namespace tamba::cli
