#pragma once

#include "Tamba/Prompts.h"
#include "Tamba/Sheets/Sheet.h"

class QTableWidget;

namespace tamba {

[[nodiscard]] QString title(Frequency frequency);

/// The expenses that come again: what and when; each can be paused or stopped.
class RecurringSheet : public Sheet {
    Q_OBJECT

public:
    RecurringSheet(QWidget* parent, const Library& library);
    [[nodiscard]] RecurringEdit edit() const;

private:
    struct Row {
        UUID id;
        bool paused = false, wasPaused = false, removed = false;
    };
    void refresh();

    const Library library_;
    std::vector<Row> rows_;
    QTableWidget* table_;
};

}  // namespace tamba
