#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Background.h"
#include "Tamba/Prompts.h"

#include <deque>
#include <filesystem>
#include <vector>

namespace tamba {

/// Brings statement files into the books one after the other: each is read, shown in the sheet, and is one step to
/// undo. Large files are read, and their lines compared with the books, on a thread of their own.
class StatementImport : public QObject {
    Q_OBJECT

public:
    StatementImport(AppModel& model, Prompts& prompts, QObject* parent = nullptr);

    void add(const std::vector<std::filesystem::path>& files);
    /// Drops what is being read and what waits.
    void cancel();
    [[nodiscard]] bool isBusy() const { return busy_; }

signals:
    /// Something that takes a while: "Reading april.csv".
    void workBegan(const QString& what);
    void workEnded();
    void imported(const QString& sentence);

private:
    struct Outcome;
    static Outcome read(const std::filesystem::path& file, const std::atomic<bool>* cancel);
    void next();
    void take(Outcome outcome);
    void bring(StatementEdit edit);
    /// `ready`: what `importStatement` gave for the lines and accounts of `before`; else null.
    void install(const StatementEdit& edit, const Library& before, const Imported* ready);

    AppModel& model_;
    Prompts& prompts_;
    std::deque<std::filesystem::path> waiting_;
    bool busy_ = false;
    int turn_ = 0;  ///< one more with each `cancel`
    Background background_{this};
};

}  // namespace tamba
