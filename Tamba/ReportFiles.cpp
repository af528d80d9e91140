#include "Tamba/ReportFiles.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Reports/Export.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/ReportTables.h"
#include "TambaCore/Reports/TablePDF.h"

#include <QThread>

#include <algorithm>

namespace tamba {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string bytesOf(const CSV& csv) { return std::string(byteOrderMark) + csv.text(); }

}  // namespace

/// What became of a bundle: made, stopped, or the sentence why not.
struct ReportFiles::Made {
    std::optional<Export::YearEnd> bundle;
    QString problem;
};

ReportFiles::ReportFiles(AppModel& model, Prompts& prompts, QObject* parent)
    : QObject(parent), model_(model), prompts_(prompts) {}

ReportFiles::~ReportFiles() {
    cancel();
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

bool ReportFiles::write(const Path& file, const std::function<void(const Path&)>& work) {
    try {
        work(file);
        return true;
    } catch (const FileError& error) {
        prompts_.alert(
            tr("“%1” couldn’t be written: %2.").arg(toQt(file.filename()), toQt(std::string_view(error.what()))));
    }
    return false;
}

void ReportFiles::saveFolder(const QString& title, const std::string& name,
                             const std::vector<std::pair<std::string, std::string>>& files) {
    const auto into = prompts_.targetFolder(title);
    if (!into) return;
    (void)write(*into / name, [&](const Path& wanted) {
        // What somebody made of an earlier one stays.
        Path folder = wanted;
        for (int n = 2; Files::exists(folder); ++n) folder = Path(wanted) += " " + std::to_string(n);
        Files::makeFolders(folder);
        for (const auto& [file, bytes] : files) Files::writeAtomically(folder / Files::safeName(file), bytes);
        emit saved(files.size() == 1 ? tr("Saved 1 file in “%1”").arg(toQt(folder.filename()))
                                     : tr("Saved %1 files in “%2”").arg(files.size()).arg(toQt(folder.filename())),
                   toQt(folder));
    });
}

void ReportFiles::saveTables(const ReportPage& page) {
    const std::string name = fileNameOf(page.choice, model_.library());
    std::vector<std::pair<std::string, std::string>> files;
    if (page.choice.kind == ReportKind::outward) {
        const auto outward = GSTReturns::gstr1(model_.library(), page.period);
        for (const auto& section : ReportTables::gstr1Sections(outward))
            files.emplace_back(section.fileName, bytesOf(section.csv));
    } else {
        for (const Table& table : page.tables) files.emplace_back(table.title + ".csv", bytesOf(Tables::csv(table)));
    }
    if (files.size() != 1) return saveFolder(tr("Save Tables as CSV"), name, files);
    const auto file = prompts_.saveFile(tr("Save Table as CSV"), name + ".csv");
    if (file && write(*file, [&](const Path& path) { Files::writeAtomically(path, files.front().second); }))
        emit saved(tr("Saved “%1”").arg(toQt(file->filename())), toQt(file->parent_path()));
}

void ReportFiles::savePortalFile(const ReportPage& page) {
    const auto refused = std::count_if(page.remarks.begin(), page.remarks.end(),
                                       [](const ReportRemark& remark) { return remark.tone == Tone::danger; });
    if (refused > 0 &&
        !prompts_.confirm(tr("The portal will refuse this file"),
                          refused == 1
                              ? tr("One thing has to be put right first. It stands above the tables.")
                              : tr("%1 things have to be put right first. They stand above the tables.").arg(refused),
                          tr("Save It Anyway")))
        return;
    const PortalFile made = portalFile(model_.library(), page.choice);
    const auto file = prompts_.saveFile(tr("Save the Portal’s File"), made.name);
    if (file && write(*file, [&](const Path& path) { Files::writeAtomically(path, made.bytes); }))
        emit saved(tr("Saved “%1”. Check the figures on the portal before you file.").arg(toQt(file->filename())),
                   toQt(file->parent_path()));
}

void ReportFiles::print(const ReportPage& page) {
    if (page.tables.empty()) return;
    prompts_.print(toQt(fileNameOf(page.choice, model_.library())),
                   TablePDF::render(model_.library().business,
                                    {std::string(title(page.choice.kind)), page.tables, model_.today()}));
}

void ReportFiles::saveJournal(IncomeBasis basis) {
    const auto file = prompts_.saveFile(tr("Save Journal"), "tamba-" + model_.today().iso() + ".journal");
    if (file &&
        write(*file, [&](const Path& path) { Files::writeAtomically(path, Export::journal(model_.library(), basis)); }))
        emit saved(tr("Saved “%1”").arg(toQt(file->filename())), toQt(file->parent_path()));
}

void ReportFiles::saveBooks(const ReportChoice& choice) {
    std::vector<std::pair<std::string, std::string>> files;
    for (Export::File& file : Export::tables(model_.library(), periodOf(choice, model_.library()), model_.today()))
        files.emplace_back(std::move(file.name), std::move(file.bytes));
    ReportChoice named = choice;
    named.kind = ReportKind::yearEnd;
    saveFolder(tr("Save Tables as CSV"), "Books" + fileNameOf(named, model_.library()).substr(title(named.kind).size()),
               files);
}

void ReportFiles::makeBundle(const FinancialYear& year) {
    if (isBusy() || model_.state() != AppModel::State::open) return;
    const auto into = prompts_.targetFolder(tr("Where Should the Bundle Go?"));
    if (!into) return;
    stop_ = std::make_shared<std::atomic<bool>>(false);
    emit progressed(tr("Making the year-end bundle"), 0, 0);
    auto* thread = QThread::create([this, stop = stop_, library = model_.library(), books = model_.folder(), year,
                                    today = model_.today(), into = *into] {
        const auto progress = [&](std::size_t done, std::size_t count, std::string_view name) {
            QMetaObject::invokeMethod(
                this,
                [this, stop, name = toQt(name), done, count] {
                    if (stop == stop_) emit progressed(name, static_cast<int>(done), static_cast<int>(count));
                },
                Qt::QueuedConnection);
            return !stop->load();
        };
        auto made = std::make_shared<Made>();
        try {
            made->bundle = Export::yearEnd(library, books, year, today, into, progress);
        } catch (const FileError& error) {
            const QString why = toQt(std::string_view(error.what()));
            made->problem = tr("The bundle couldn’t be made: %1")
                                .arg(why.endsWith(QLatin1Char('.')) ? why : why + QLatin1Char('.'));
        } catch (const std::exception& error) {
            made->problem = toQt(std::string_view(error.what()));
        }
        QMetaObject::invokeMethod(this, [this, made] { finish(*made); }, Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start(QThread::LowPriority);
}

void ReportFiles::finish(const Made& made) {
    stop_.reset();
    emit ended();
    if (!made.problem.isEmpty()) return prompts_.alert(made.problem);
    if (!made.bundle) return emit cancelled();
    const Export::YearEnd& bundle = *made.bundle;
    emit saved(tr("“%1” is ready: %2 files").arg(toQt(bundle.zip.filename())).arg(bundle.files),
               toQt(bundle.zip.parent_path()));
    if (bundle.missing.empty()) return;
    QStringList names;
    for (const std::string& name : bundle.missing) names << toQt(name);
    QString shown = names.mid(0, 12).join(QLatin1Char('\n'));
    if (names.size() > 12) shown += tr("\n… and %1 more").arg(names.size() - 12);
    prompts_.alert(tr("The bundle is made, but these files are not where the books say:\n\n%1").arg(shown));
}

void ReportFiles::cancel() {
    if (stop_) stop_->store(true);
}

}  // namespace tamba
