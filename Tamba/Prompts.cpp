#include "Tamba/Prompts.h"

#include "Tamba/MailProgram.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/Sheets/AccountSheet.h"
#include "Tamba/Sheets/BackupSheet.h"
#include "Tamba/Sheets/BillableSheet.h"
#include "Tamba/Sheets/ClientSheet.h"
#include "Tamba/Sheets/ConflictSheet.h"
#include "Tamba/Sheets/CreditNoteSheet.h"
#include "Tamba/Sheets/ImportSheet.h"
#include "Tamba/Sheets/IssueSheet.h"
#include "Tamba/Sheets/MailSheet.h"
#include "Tamba/Sheets/MileageSheet.h"
#include "Tamba/Sheets/PaymentSheet.h"
#include "Tamba/Sheets/RecurringSheet.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Sheets/Sheet.h"
#include "Tamba/Sheets/SplitSheet.h"
#include "Tamba/Sheets/VoidSheet.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Base/Text.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QStandardPaths>

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

std::vector<Prompts::Path> DialogPrompts::receiptFiles() {
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

std::vector<Prompts::Path> DialogPrompts::statementFiles() {
    std::vector<std::filesystem::path> paths;
    const QString kinds = QObject::tr("Bank statements") +
                          QStringLiteral(
                              " (*.csv *.tsv *.txt *.ofx *.qfx *.qif *.xlsx *.xls *.json *.html *.htm *.CSV *.TXT "
                              "*.OFX *.QIF *.XLSX *.XLS);;") +
                          QObject::tr("All files") + QStringLiteral(" (*)");
    for (const QString& file : QFileDialog::getOpenFileNames(&window_, QObject::tr("Import Statement"), {}, kinds))
        paths.push_back(toPath(file));
    return paths;
}

std::optional<StatementEdit> DialogPrompts::statement(const Library& library, StatementFile file) {
    const std::string layout = file.layout;
    ImportSheet sheet(&window_, library, std::move(file), Remembered::layout(layout));
    if (sheet.exec() != QDialog::Accepted) return {};
    Remembered::setLayout(layout, sheet.kept());
    return sheet.edit();
}

std::optional<Prompts::Path> DialogPrompts::libraryFolder(const Path& present) {
    const QString folder =
        QFileDialog::getExistingDirectory(&window_, QObject::tr("Open Library Folder"), toQt(present.parent_path()));
    if (folder.isEmpty()) return {};
    return toPath(folder);
}

std::optional<Prompts::Path> DialogPrompts::pictureFile() {
    const QString file = QFileDialog::getOpenFileName(
        &window_, QObject::tr("Choose a Picture"), {},
        QObject::tr("Pictures") + QStringLiteral(" (*.png *.jpg *.jpeg *.webp *.gif *.tif *.tiff *.PNG *.JPG *.JPEG)"));
    if (file.isEmpty()) return {};
    return toPath(file);
}

std::optional<Prompts::Path> DialogPrompts::targetFolder(const QString& title) {
    const QString start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString folder = QFileDialog::getExistingDirectory(&window_, title, start);
    if (folder.isEmpty()) return {};
    return toPath(folder);
}

std::optional<Prompts::Path> DialogPrompts::saveFile(const QString& title, const std::string& name) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString file = QFileDialog::getSaveFileName(&window_, title, folder + QLatin1Char('/') + toQt(name));
    if (file.isEmpty()) return {};
    return toPath(file);
}

std::vector<std::size_t> DialogPrompts::conflicts(const MergeReport& report) {
    ConflictSheet sheet(&window_, report);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.otherWay();
}

std::optional<std::string> DialogPrompts::backup(const BackupQuestion& question) {
    BackupSheet sheet(&window_, question);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.chosen();
}

std::optional<MileageTrip> DialogPrompts::mileage(const Library& library, Day today) {
    MileageSheet sheet(&window_, library, today);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.trip();
}

std::optional<RecurringEdit> DialogPrompts::recurring(const Library& library) {
    RecurringSheet sheet(&window_, library);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.edit();
}

std::optional<SettingsEdit> DialogPrompts::settings(const Library& library, const SettingsContext& context, Day today) {
    SettingsSheet sheet(&window_, library, today, context, [this] { return pictureFile(); });
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.edit();
}

std::optional<std::string> DialogPrompts::newName(const QString& title) {
    Sheet sheet(&window_, Sheet::Icon::none, title, {});
    auto* field = new QLineEdit(&sheet);
    Controls::name(*field, "newName", QObject::tr("Name"));
    field->setPlaceholderText(QObject::tr("Name"));
    sheet.body().addWidget(field);
    auto* add = sheet.addButtons(QObject::tr("Add"), QObject::tr("Cancel"), Sheet::Main::keeps);
    add->setEnabled(false);
    QObject::connect(field, &QLineEdit::textChanged, add,
                     [add](const QString& text) { add->setEnabled(!text.trimmed().isEmpty()); });
    field->setFocus();
    if (sheet.exec() != QDialog::Accepted) return {};
    const std::string name(Text::trim(toStd(field->text())));
    if (name.empty()) return {};
    return name;
}

std::optional<Client> DialogPrompts::newClient(const Library& library, const std::string& name) {
    ClientSheet sheet(&window_, library, name);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.client();
}

std::optional<BankAccount> DialogPrompts::bankAccount(const Library& library, const BankAccount& account) {
    AccountSheet sheet(&window_, library, account);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.account();
}

std::vector<Bank::Share> DialogPrompts::shares(const Library& library, const BankTransaction& line) {
    SplitSheet sheet(&window_, library, line);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.shares();
}

std::optional<Day> DialogPrompts::issue(const Library& library, const Document& draft, Day today) {
    IssueSheet sheet(&window_, library, draft, today);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.date();
}

std::optional<Payment> DialogPrompts::payment(const Library& library, const Document& invoice, Day today) {
    PaymentSheet sheet(&window_, library, invoice, today);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.payment();
}

std::optional<CreditNote> DialogPrompts::creditNote(const Library& library, const Document& draft) {
    CreditNoteSheet sheet(&window_, library, draft);
    const int result = sheet.exec();
    if (result == QDialog::Rejected) return {};
    return CreditNote{sheet.note(), result == QDialog::Accepted};
}

std::optional<std::string> DialogPrompts::voiding(const Library& library, const Document& document, Day today) {
    VoidSheet sheet(&window_, library, document, today);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.reason();
}

std::optional<Reminders::Draft> DialogPrompts::mail(const Library& library, const Document& document, Mail kind,
                                                    Day today) {
    MailSheet sheet(&window_, library, document, kind, today, MailProgram::exists());
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.draft();
}

std::vector<UUID> DialogPrompts::expensesToBill(const Library& library, const Document& draft) {
    BillableSheet sheet(&window_, library, draft);
    if (sheet.exec() != QDialog::Accepted) return {};
    return sheet.chosen();
}

bool DialogPrompts::openMail(const Reminders::Draft& draft, const Path& pdf) {
    return MailProgram::compose(draft, pdf);
}

void DialogPrompts::print(const QString& title, const std::string& pdf) {
    Printing::print(window_, title, pdf, heard_);
}

}  // namespace tamba
