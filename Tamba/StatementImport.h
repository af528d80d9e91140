#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"

#include <deque>
#include <filesystem>
#include <vector>

namespace tamba {

/// Brings statement files into the books one after the other: each is read, shown in the sheet, and is one step to
/// undo. Large files are read on a thread of their own.
class StatementImport : public QObject {
    Q_OBJECT

public:
    StatementImport(AppModel& model, Prompts& prompts, QObject* parent = nullptr);
    ~StatementImport() override;

    void add(const std::vector<std::filesystem::path>& files);
    /// Drops what is being read and what waits.
    void cancel();
    [[nodiscard]] bool isBusy() const { return busy_; }

signals:
    /// A file that takes a while.
    void reading(const QString& file);
    void readingEnded();
    void imported(const QString& sentence);

private:
    struct Outcome;
    static Outcome read(const std::filesystem::path& file);
    void next();
    void take(const Outcome& outcome);
    void ask(const StatementFile& file);

    AppModel& model_;
    Prompts& prompts_;
    std::deque<std::filesystem::path> waiting_;
    bool busy_ = false;
    int turn_ = 0;  ///< what was read for an earlier one is dropped
};

}  // namespace tamba
