#include "Tamba/Sheets/Settings/CategoriesPage.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/LookFields.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Categories.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace tamba {
namespace {

/// The glyphs to choose from, by the symbols of the books, with what each shows.
struct Symbol {
    const char* name;
    const char* words;
};
constexpr Symbol symbols[] = {
    {"app.badge", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "App")},
    {"desktopcomputer", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Computer")},
    {"airplane", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Aeroplane")},
    {"car", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Car")},
    {"fork.knife", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Meal")},
    {"paperclip", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Paper clip")},
    {"house", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "House")},
    {"wifi", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Signal")},
    {"briefcase", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Briefcase")},
    {"megaphone", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Megaphone")},
    {"building.columns", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Bank")},
    {"road.lanes", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Road")},
    {"tray", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Tray")},
    {"tag", QT_TRANSLATE_NOOP("tamba::CategoriesPage", "Tag")},
};

/// "12 expenses, 1 recurring expense and 2 rules"; empty when nothing uses the category.
std::string useText(const Categories::Use& use) {
    std::vector<std::string> parts;
    const auto add = [&](std::size_t count, const char* one, const char* many) {
        if (count > 0) parts.push_back(RowText::counted(count, one, many));
    };
    add(use.expenses, RowText::marked("Rows", "1 expense"), RowText::marked("Rows", "%1 expenses"));
    add(use.recurring, RowText::marked("Rows", "1 recurring expense"),
        RowText::marked("Rows", "%1 recurring expenses"));
    add(use.rules, RowText::marked("Rows", "1 rule"), RowText::marked("Rows", "%1 rules"));
    if (parts.size() < 2) return parts.empty() ? std::string() : parts.front();
    const std::string last = parts.back();
    parts.pop_back();
    return RowText::filled(RowText::translate("Rows", "%1 and %2"), {Text::join(parts, ", "), last});
}

}  // namespace

CategoriesPage::CategoriesPage(const Library& library, QWidget* parent) : SettingsPage(parent), library_(library) {
    for (const Category& category : library.categories) categories_.push_back(category);
    auto* box = new QWidget(this);
    auto* columns = new QHBoxLayout(box);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(12);
    auto* left = new QVBoxLayout;
    left->setSpacing(6);
    list_ = new QListWidget(box);
    Controls::name(*list_, "categories", tr("Categories"));
    list_->setFixedWidth(222);
    list_->setMinimumHeight(380);
    list_->setIconSize(QSize(17, 17));
    auto* add = Controls::button(tr("Add Category"), "addCategory", Controls::Kind::link, box);
    left->addWidget(list_, 1);
    left->addWidget(add, 0, Qt::AlignLeft);
    columns->addLayout(left);
    fields_ = new QWidget(box);
    makeFields();
    columns->addWidget(fields_, 1, Qt::AlignTop);
    form.addRow(box);
    connect(add, &QPushButton::clicked, this, &CategoriesPage::add);
    connect(list_, &QListWidget::currentRowChanged, this, &CategoriesPage::choose);
    refreshList();
    list_->setCurrentRow(0);
    choose(list_->currentRow());
}

void CategoriesPage::makeFields() {
    auto* fields = fieldsForm_ = new Form(*fields_, 64);
    fields_->setLayout(fields);
    fields->setNoteWidth(240);
    name_ = fields->line(tr("Name"), "categoryName");
    symbol_ = fields->combo(tr("Glyph"), "categorySymbol");
    for (const Symbol& symbol : symbols)
        symbol_->addItem(Icons::icon(Icons::ofCategory(symbol.name), &Colors::muted), tr(symbol.words),
                         QString::fromLatin1(symbol.name));
    color_ = new AccentField({}, fields_, "categoryColor");
    fields->row(tr("Colour"), color_);
    claims_ = fields->check(tr("Input tax is claimed"), "categoryClaims");
    fields->section(tr("Take it away"));
    use_ = fields->note(QStringLiteral(" "));
    use_->setObjectName(QStringLiteral("categoryUse"));
    instead_ = fields->combo(tr("File under"), "categoryInstead");
    remove_ = Controls::button(tr("Remove This Category"), "removeCategory", Controls::Kind::plain, fields_);
    fields->addRow(QString(), remove_);
    connect(name_, &QLineEdit::textChanged, this, &CategoriesPage::take);
    connect(symbol_, &QComboBox::activated, this, &CategoriesPage::take);
    connect(color_, &AccentField::edited, this, &CategoriesPage::take);
    connect(claims_, &QCheckBox::toggled, this, &CategoriesPage::take);
    connect(remove_, &QPushButton::clicked, this, &CategoriesPage::remove);
}

void CategoriesPage::refreshList() {
    const QSignalBlocker block(list_);
    const int row = list_->currentRow();
    list_->clear();
    for (const Category& category : categories_) {
        auto* entry = new QListWidgetItem(Icons::categoryIcon(category.symbol, category.colorHex),
                                          category.name.empty() ? tr("New category") : toQt(category.name), list_);
        entry->setSizeHint(QSize(0, 32));
        entry->setToolTip(entry->text());
    }
    list_->setCurrentRow(std::min(row, list_->count() - 1));
}

void CategoriesPage::choose(int row) {
    const QScopedValueRollback guard(filling_, true);
    fields_->setVisible(row >= 0);
    if (row < 0) return;
    const Category& category = categories_[static_cast<std::size_t>(row)];
    name_->setText(toQt(category.name));
    symbol_->setCurrentIndex(symbol_->findData(toQt(category.symbol)));
    color_->setHex(category.colorHex);
    claims_->setChecked(category.claimsTax);
    Controls::markProblem(*name_, category.name.empty() ? tr("A category needs a name.") : QString());
    const std::string use = useText(Categories::use(library_, category.id));
    fieldsForm_->setNote(*use_, use.empty() ? tr("Nothing is filed under it.") : tr("Used by %1.").arg(toQt(use)));
    fieldsForm_->setRowVisible(instead_, !use.empty());
    refreshInstead();
}

void CategoriesPage::refreshInstead() {
    instead_->clear();
    instead_->addItem(tr("No category"), QString());
    const int row = list_->currentRow();
    for (std::size_t i = 0; i < categories_.size(); ++i)
        if (static_cast<int>(i) != row)
            instead_->addItem(Icons::categoryIcon(categories_[i].symbol, categories_[i].colorHex),
                              toQt(categories_[i].name), toQt(categories_[i].id.text()));
}

void CategoriesPage::take() {
    const int row = list_->currentRow();
    if (filling_ || row < 0) return;
    Category& category = categories_[static_cast<std::size_t>(row)];
    category.name = toStd(name_->text().trimmed());
    if (symbol_->currentIndex() >= 0) category.symbol = toStd(symbol_->currentData().toString());
    category.colorHex = color_->hex().value_or(category.colorHex);
    category.claimsTax = claims_->isChecked();
    Controls::markProblem(*name_, category.name.empty() ? tr("A category needs a name.") : QString());
    refreshList();
    emit edited();
}

void CategoriesPage::add() {
    categories_.push_back({UUID::random(), "", "tag", "7D7466", true, {}});
    refreshList();
    list_->setCurrentRow(list_->count() - 1);
    name_->setFocus();
    emit edited();
}

void CategoriesPage::remove() {
    const int row = list_->currentRow();
    if (row < 0) return;
    const UUID id = categories_[static_cast<std::size_t>(row)].id;
    removed_.push_back({id, UUID::parse(toStd(instead_->currentData().toString()))});
    // What was to go there earlier goes where its things go now.
    for (Removal& removal : removed_)
        if (removal.instead == id) removal.instead = removed_.back().instead;
    categories_.erase(categories_.begin() + row);
    refreshList();
    choose(list_->currentRow());
    emit edited();
}

bool CategoriesPage::isGood() const {
    return std::none_of(categories_.begin(), categories_.end(), [](const Category& c) { return c.name.empty(); });
}

void CategoriesPage::store(Library& library) const {
    for (const Category& category : categories_) {
        if (category.name.empty()) continue;
        const std::size_t index = indexOf(library.categories, category.id);
        if (index == library.categories.size())
            library.categories.append(category);
        else if (library.categories[index] != category)
            library.categories.update(index, [&](Category& kept) { kept = category; });
    }
    for (const Removal& removal : removed_)
        library = Categories::remove(std::move(library), removal.category, removal.instead);
}

}  // namespace tamba
