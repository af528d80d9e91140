#include "Tamba/FolderActions.h"

#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "TambaCore/Base/Files.h"

#include <QDesktopServices>
#include <QFile>
#include <QThread>
#include <QUrl>

#include <algorithm>

namespace tamba {

FolderActions::FolderActions(AppModel& model, Prompts& prompts, QObject* parent)
    : QObject(parent), model_(model), prompts_(prompts) {}

FolderActions::~FolderActions() {
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

AppModel::Expect FolderActions::expected(const std::filesystem::path& folder) {
    return Remembered::heldBooks(folder) ? AppModel::Expect::books : AppModel::Expect::anything;
}

void FolderActions::run(FolderWish wish) {
    switch (wish) {
        case FolderWish::none:
            return;
        case FolderWish::move:
            return move();
        case FolderWish::openOther:
            return openOther();
        case FolderWish::restore:
            return restore();
    }
}

void FolderActions::show() { QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(model_.folder()))); }

void FolderActions::openOther() {
    const auto pointed = prompts_.libraryFolder(model_.folder());
    if (!pointed) return;
    std::filesystem::path folder = *pointed;
    const AppModel::Expect expect = expected(folder);
    const bool good =
        expect == AppModel::Expect::books || model_.attempt([&] { folder = LibraryStore::placeIn(folder); });
    if (good && model_.open(folder, expect)) emit chosen(folder);
}

void FolderActions::move() {
    if (moving_ || model_.state() != AppModel::State::open) return;
    const auto parent = prompts_.libraryFolder(model_.folder());
    if (!parent) return;
    std::filesystem::path place;
    const bool good = model_.attempt([&] {
        place = LibraryStore::placeIn(*parent);
        if (Files::exists(LibraryStore(place).fileURL()))
            throw StoreError(StoreError::Code::unwritable, "there are books in that folder already");
    });
    if (!good || !model_.saveNow()) return;
    moving_ = true;
    emit began(tr("Copying the books"));
    auto* thread = QThread::create([this, place, store = model_.store()] {
        QString problem;
        try {
            store.copyVerified(place);
        } catch (const std::exception& error) {
            problem = toQt(std::string_view(error.what()));
        }
        QMetaObject::invokeMethod(this, [this, place, problem] { switchTo(place, problem); }, Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

void FolderActions::switchTo(const std::filesystem::path& place, const QString& problem) {
    moving_ = false;
    emit ended();
    if (!problem.isEmpty()) return prompts_.alert(problem);
    const std::filesystem::path old = model_.folder();
    const bool same = model_.saveNow() && model_.attempt([&] {
        // A recurring expense may have come due, or another computer's change come in, while files were copied.
        if (!Files::sameBytes(LibraryStore(old).fileURL(), LibraryStore(place).fileURL()))
            Files::writeAtomically(LibraryStore(place).fileURL(), Files::read(LibraryStore(old).fileURL()));
    });
    if (!same) return;
    model_.open(place);
    if (model_.state() != AppModel::State::open) {
        const QString why = model_.problem();
        model_.open(old);
        return prompts_.alert(why);
    }
    emit chosen(place);
    askAboutOld(old);
}

void FolderActions::askAboutOld(const std::filesystem::path& old) {
    const bool remove = prompts_.confirm(
        tr("The books have moved"),
        tr("They are in %1 now, and every file has been compared. The old folder, %2, still holds a copy.")
            .arg(toQt(model_.folder()), toQt(old)),
        tr("Move the Old One to the Trash"));
    if (!remove) return;
    // Files that somebody keeps beside the books stay.
    const auto own = LibraryStore::ownNames();
    QStringList paths;
    bool others = false;
    model_.attempt([&] {
        for (const std::string& name : Files::names(old)) {
            if (std::find(own.begin(), own.end(), name) == own.end())
                others = true;
            else
                paths << toQt(old / name);
        }
    });
    if (!others) paths = {toQt(old)};
    for (const QString& path : paths)
        if (!QFile::moveToTrash(path))
            return prompts_.alert(
                tr("The old folder could not be moved to the trash. You can delete it yourself: %1").arg(toQt(old)));
}

void FolderActions::restore() {
    if (model_.state() == AppModel::State::locked) return prompts_.alert(model_.problem());
    BackupQuestion question;
    const bool found = model_.attempt([&] { question.backups = model_.backups(); });
    if (!found) return;
    question.read = [store = model_.store()](const std::string& name) {
        return LibraryStore::read(store.backupsFolder() / name);
    };
    if (model_.state() == AppModel::State::open) question.present = model_.library();
    if (const auto backup = prompts_.backup(question)) model_.restore(*backup);
}

}  // namespace tamba
