#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"

namespace tamba {

/// What can be done with the folder of the books: shown, opened elsewhere, moved, set back to a backup.
class FolderActions : public QObject {
    Q_OBJECT

public:
    FolderActions(AppModel& model, Prompts& prompts, QObject* parent = nullptr);
    ~FolderActions() override;

    /// Books that were in a folder are asked about when they are gone, and not begun anew.
    [[nodiscard]] static AppModel::Expect expected(const std::filesystem::path& folder);

    void run(FolderWish wish);
    void show();
    void openOther();
    /// Copies the books off the main thread, compares the copy, goes on in it, and asks about the old folder. Nothing
    /// may change the books between `began` and `ended`.
    void move();
    void restore();
    [[nodiscard]] bool isMoving() const { return moving_; }

signals:
    void began(const QString& what);
    void ended();
    /// The person has chosen these books as theirs.
    void chosen(const std::filesystem::path& folder);

private:
    void switchTo(const std::filesystem::path& place, const QString& problem);
    void askAboutOld(const std::filesystem::path& old);

    AppModel& model_;
    Prompts& prompts_;
    bool moving_ = false;
};

}  // namespace tamba
