#include "Tamba/Prompts.h"

#include "Tamba/QtText.h"
#include "Tamba/Sheets/BackupSheet.h"
#include "Tamba/Sheets/MileageSheet.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Sheets/Sheet.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Base/Text.h"

#include <QFileDialog>
#include <QLineEdit>

namespace tamba {

void DialogPrompts::alert(const QString& sentence) {
    Sheet sheet(&window_, Sheet::Icon::alert, {}, sentence);
    sheet.addButtons(QObject::tr("OK"), {});
    sheet.exec();
}

bool DialogPrompts::confirm(const QString& title, const QString& text, const QString& action) {
    Sheet sheet(&window_, Sheet::Icon::question, title, text);
    sheet.addButtons(action, QObject::tr("Cancel"));
    return sheet.exec() == QDialog::Accepted;
}

bool DialogPrompts::addAgain(const QStringList& files) {
    QStringList shown = files.mid(0, 8);
    if (files.size() > shown.size()) shown << QObject::tr("… and %1 more").arg(files.size() - shown.size());
    const bool one = files.size() == 1;
    Sheet sheet(&window_, Sheet::Icon::question,
                one ? QObject::tr("This receipt is already in your books")
                    : QObject::tr("%1 of these receipts are already in your books").arg(files.size()),
                shown.join(QLatin1Char('\n')));
    sheet.addButtons(one ? QObject::tr("Leave It Out") : QObject::tr("Leave Them Out"), QObject::tr("Add Again"));
    return sheet.exec() == QDialog::Rejected && !sheet.wasDismissed();
}

std::vector<std::filesystem::path> DialogPrompts::receiptFiles() {
    std::vector<std::filesystem::path> paths;
    const QString kinds = QObject::tr("Receipts") +
                          QStringLiteral(
                              " (*.jpg *.jpeg *.png *.heic *.heif *.webp *.tif *.tiff *.gif *.bmp *.pdf *.eml "
                              "*.emlx *.JPG *.JPEG *.PNG *.HEIC *.PDF);;") +
                          QObject::tr("All files") + QStringLiteral(" (*)");
    for (const QString& file : QFileDialog::getOpenFileNames(&window_, QObject::tr("Add Receipts"), {}, kinds))
        paths.push_back(toPath(file));
    return paths;
}

std::optional<std::filesystem::path> DialogPrompts::libraryFolder(const std::filesystem::path& present) {
    const QString folder =
        QFileDialog::getExistingDirectory(&window_, QObject::tr("Open Library Folder"), toQt(present.parent_path()));
    if (folder.isEmpty()) return {};
    return toPath(folder);
}

std::optional<std::string> DialogPrompts::backup(const std::vector<LibrarySession::Backup>& backups) {
    BackupSheet sheet(&window_, backups);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.chosen();
}

std::optional<MileageTrip> DialogPrompts::mileage(const Library& library, Day today) {
    MileageSheet sheet(&window_, library, today);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.trip();
}

std::optional<Business> DialogPrompts::settings(const Business& business) {
    SettingsSheet sheet(&window_, business);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.business();
}

std::optional<std::string> DialogPrompts::newName(const QString& title) {
    Sheet sheet(&window_, Sheet::Icon::none, title, {});
    auto* field = new QLineEdit(&sheet);
    Controls::name(*field, "newName", QObject::tr("Name"));
    field->setPlaceholderText(QObject::tr("Name"));
    sheet.body().addWidget(field);
    sheet.addButtons(QObject::tr("Add"), QObject::tr("Cancel"));
    field->setFocus();
    if (sheet.exec() != QDialog::Accepted) return {};
    const std::string name(Text::trim(toStd(field->text())));
    if (name.empty()) return {};
    return name;
}

}  // namespace tamba
