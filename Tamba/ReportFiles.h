#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/ReportRows.h"

#include <atomic>
#include <memory>

namespace tamba {

/// Everything that leaves the reports: CSV files, paper, the portal's files, the journal and the year-end bundle, which
/// is made on a thread of its own from the books as they were when it began.
class ReportFiles : public QObject {
    Q_OBJECT

public:
    ReportFiles(AppModel& model, Prompts& prompts, QObject* parent = nullptr);
    ~ReportFiles() override;

    /// One file for one table, else a folder of them. GSTR-1 in the layout that the government's offline tool imports.
    void saveTables(const ReportPage& page);
    /// Asks first where the portal would refuse the file.
    void savePortalFile(const ReportPage& page);
    void print(const ReportPage& page);
    void saveJournal(IncomeBasis basis);
    /// The plain tables of the books.
    void saveBooks(const ReportChoice& choice);
    void makeBundle(const FinancialYear& year);
    void cancel();
    [[nodiscard]] bool isBusy() const { return stop_ != nullptr; }

signals:
    /// `place`: what to show on the desktop.
    void saved(const QString& sentence, const QString& place);
    void cancelled();
    void progressed(const QString& what, int done, int count);
    void ended();

private:
    struct Made;
    using Path = std::filesystem::path;
    bool write(const Path& file, const std::function<void(const Path&)>& work);
    void saveFolder(const QString& title, const std::string& name,
                    const std::vector<std::pair<std::string, std::string>>& files);
    void finish(const Made& made);

    AppModel& model_;
    Prompts& prompts_;
    std::shared_ptr<std::atomic<bool>> stop_;  // of the bundle being made
};

}  // namespace tamba
