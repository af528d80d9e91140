#include "Tamba/Widgets/Sidebar.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Base/Text.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba {

namespace {
constexpr int wideWidth = 208, narrowWidth = 60;
}

/// One entry: glyph, word, and how many wait; where it is narrow a dot says that some do.
class SidebarItem : public QAbstractButton {
public:
    SidebarItem(const QString& icon, const QString& text, bool nested, QWidget* parent)
        : QAbstractButton(parent), icon_(icon), nested_(nested) {
        setText(text);
        setFixedHeight(32);
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(text);
        setAttribute(Qt::WA_Hover);
    }
    ExpenseList list = ExpenseList::all;
    QString keys;

    void refreshTip(bool narrow) {
        QStringList parts{keys};
        if (narrow) parts = {text(), accessibleDescription(), keys};
        parts.removeAll(QString());
        setToolTip(parts.join(QStringLiteral(" · ")));
    }
    void setCount(std::size_t count) {
        count_ = count;
        setAccessibleDescription(count == 0 ? QString() : Sidebar::tr("%n waiting", nullptr, static_cast<int>(count)));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box = QRectF(rect()).adjusted(8.5, 1.5, -8.5, -1.5);
        const bool on = isChecked();
        if (on || underMouse()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(on ? mixed(colors.sidebar, colors.accent, colors.dark ? 0.24F : 0.13F)
                                : mixed(colors.sidebar, colors.text, 0.05F));
            painter.drawRoundedRect(box, 6, 6);
        }
        if (hasFocus()) {
            painter.setPen(QPen(colors.accent, 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(box, 6, 6);
        }
        const QColor ink = on ? colors.dark ? colors.text : colors.accent : nested_ ? colors.muted : colors.text;
        if (width() < wideWidth) {
            const qreal size = nested_ ? 16 : 18;
            QRectF glyph(0, 0, size, size);
            glyph.moveCenter(QRectF(rect()).center());
            Icons::paint(painter, glyph, icon_, ink);
            if (count_ == 0 || nested_) return;
            painter.setPen(QPen(colors.sidebar, 1.5));
            painter.setBrush(colors.accent);
            painter.drawEllipse(glyph.topRight() + QPointF(2, 1), 4, 4);
            return;
        }
        const qreal left = nested_ ? 36 : 18;
        Icons::paint(painter, QRectF(left, (height() - 18) / 2.0, 18, 18), icon_, ink);
        painter.setFont(Style::textFont(13, on || !nested_ ? QFont::DemiBold : QFont::Normal));
        painter.setPen(colors.text);
        QRectF words(left + 27, 0, width() - left - 27 - 18, height());
        if (count_ > 0) {
            painter.save();
            painter.setFont(Style::textFont(11, QFont::DemiBold));
            const QString count = QString::number(count_);
            const qreal wide = std::max(20.0, painter.fontMetrics().horizontalAdvance(count) + 12.0);
            const QRectF pill(box.right() - 6 - wide, (height() - 18) / 2.0, wide, 18);
            painter.setPen(Qt::NoPen);
            painter.setBrush(mixed(colors.sidebar, colors.text, on ? 0.16F : 0.10F));
            painter.drawRoundedRect(pill, 9, 9);
            painter.setPen(colors.text);
            painter.drawText(pill, Qt::AlignCenter, count);
            painter.restore();
            words.setRight(pill.left() - 4);
        }
        painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                         painter.fontMetrics().elidedText(text(), Qt::ElideRight, static_cast<int>(words.width())));
    }

private:
    QString icon_;
    bool nested_;
    std::size_t count_ = 0;
};

namespace {

/// The first letter of the business on its colour.
class Monogram : public QWidget {
public:
    explicit Monogram(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) { setFixedSize(34, 34); }

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.accent);
        painter.drawRoundedRect(rect(), 8, 8);
        const auto letters = Text::characters(Text::trim(model_.library().business.name));
        if (letters.empty()) {
            Icons::paint(painter, QRectF(rect()).adjusted(7, 7, -7, -7), QStringLiteral("books"), colors.onAccent);
            return;
        }
        painter.setFont(Style::titleFont(16, QFont::Bold));
        painter.setPen(colors.onAccent);
        painter.drawText(rect(), Qt::AlignCenter, toQt(Text::upper(letters.front())));
    }

private:
    AppModel& model_;
};

}  // namespace

QString title(Screen screen) {
    switch (screen) {
        case Screen::overview:
            return QObject::tr("Overview");
        case Screen::expenses:
            return QObject::tr("Expenses");
        case Screen::invoices:
            return QObject::tr("Invoices");
        case Screen::clients:
            return QObject::tr("Clients");
        case Screen::bank:
            return QObject::tr("Bank");
        case Screen::reports:
            return QObject::tr("Reports");
    }
    return {};
}

Sidebar::Sidebar(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    setObjectName(QStringLiteral("sidebar"));
    setFixedWidth(wideWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 14, 0, 8);
    layout->setSpacing(0);

    head_ = new QHBoxLayout;
    head_->setContentsMargins(16, 0, 12, 16);
    head_->setSpacing(10);
    head_->addWidget(new Monogram(model, this));
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    name_ = new QLabel(this);
    name_->setObjectName(QStringLiteral("businessName"));
    name_->setFont(Style::titleFont(13));
    name_->setMinimumWidth(0);
    place_ = Controls::label({}, "caption", this);
    words->addWidget(name_);
    words->addWidget(place_);
    head_->addLayout(words, 1);
    layout->addLayout(head_);

    items_ = new QVBoxLayout;
    items_->setSpacing(0);
    layout->addLayout(items_);
    for (const Screen screen : allScreens) {
        static constexpr std::pair<const char*, const char*> looks[] = {
            {"overview", "screenOverview"}, {"receipt", "screenExpenses"},   {"document", "screenInvoices"},
            {"people", "screenClients"},    {"category-bank", "screenBank"}, {"reports", "screenReports"}};
        const auto& [icon, name] = looks[static_cast<std::size_t>(screen)];
        SidebarItem* item = addItem(icon, title(screen), name, false);
        item->keys = tr("Ctrl+%1").arg(static_cast<int>(screen) + 1);
        connect(item, &QAbstractButton::clicked, this, [this, screen] {
            emit screenChosen(screen);
            if (screen == Screen::expenses) emit listChosen(ExpenseList::all);
            check();
        });
        screens_.push_back(item);
        if (screen == Screen::expenses) addLists();
    }
    layout->addStretch(1);

    ownBooks_ = Controls::button(tr("Back to Your Books"), "ownBooks", Controls::Kind::plain, this);
    auto* own = new QHBoxLayout;
    own->setContentsMargins(12, 0, 12, 8);
    own->addWidget(ownBooks_);
    layout->addLayout(own);
    ownBooks_->hide();
    connect(ownBooks_, &QPushButton::clicked, this, &Sidebar::ownBooksChosen);

    settings_ = new SidebarItem(QStringLiteral("gear"), tr("Settings"), false, this);
    settings_->setObjectName(QStringLiteral("settings"));
    connect(settings_, &QAbstractButton::clicked, this, &Sidebar::settingsChosen);
    layout->addWidget(settings_);

    saving_ = new QPushButton(this);
    saving_->setObjectName(QStringLiteral("saveState"));
    saving_->setIconSize(QSize(15, 15));
    saving_->setFocusPolicy(Qt::TabFocus);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(10, 4, 10, 0);
    foot->addWidget(saving_);
    layout->addLayout(foot);
    connect(saving_, &QPushButton::clicked, this, [this] {
        // A failed save says why, once more, when it fails again.
        if (model_.saving() == AppModel::Saving::failed && !model_.saveNow()) emit model_.refused(model_.saveProblem());
    });

    connect(&model_, &AppModel::changed, this, &Sidebar::recount);
    connect(&model_, &AppModel::opened, this, &Sidebar::recount);
    connect(&model_, &AppModel::dayChanged, this, &Sidebar::recount);
    connect(&model_, &AppModel::savingChanged, this, &Sidebar::refreshSaving);
    recount();
}

SidebarItem* Sidebar::addItem(const char* icon, const QString& text, const char* name, bool nested) {
    auto* item = new SidebarItem(QString::fromLatin1(icon), text, nested, this);
    item->setObjectName(QString::fromLatin1(name));
    item->setCheckable(true);
    items_->addWidget(item);
    return item;
}

void Sidebar::addLists() {
    struct Entry {
        ExpenseList list;
        const char* icon;
        const char* name;
    };
    for (const Entry& entry : {Entry{ExpenseList::toCheck, "eye", "listToCheck"},
                               Entry{ExpenseList::withoutCategory, "category-none", "listWithoutCategory"},
                               Entry{ExpenseList::withoutRate, "exchange", "listWithoutRate"},
                               Entry{ExpenseList::withoutReceipt, "receipt", "listWithoutReceipt"},
                               Entry{ExpenseList::billable, "billable", "listBillable"},
                               Entry{ExpenseList::mileage, "category-road", "listMileage"}}) {
        SidebarItem* item = addItem(entry.icon, Translations::shown(title(entry.list)), entry.name, true);
        item->list = entry.list;
        connect(item, &QAbstractButton::clicked, this, [this, list = entry.list] {
            emit listChosen(list);
            check();
        });
        lists_.push_back(item);
    }
}

void Sidebar::setScreen(Screen screen) {
    screen_ = screen;
    refresh();
}

void Sidebar::setList(ExpenseList list) {
    list_ = list;
    refresh();
}

void Sidebar::check() {
    // What is shown, and not what was clicked, decides.
    for (std::size_t i = 0; i < screens_.size(); ++i)
        screens_[i]->setChecked(allScreens[i] == screen_ && (screen_ != Screen::expenses || list_ == ExpenseList::all));
    for (SidebarItem* item : lists_) item->setChecked(screen_ == Screen::expenses && item->list == list_);
}

void Sidebar::setSample(bool sample) {
    ownBooks_->setVisible(sample);
    place_->setText(sample ? tr("Sample books") : toQt(model_.folder().filename()));
}

void Sidebar::setNarrow(bool narrow) {
    if (narrow == narrow_) return;
    narrow_ = narrow;
    setFixedWidth(narrow ? narrowWidth : wideWidth);
    head_->setContentsMargins(narrow ? (narrowWidth - 34) / 2 : 16, 0, narrow ? 0 : 12, 16);
    name_->setHidden(narrow);
    place_->setHidden(narrow);
    ownBooks_->setText(narrow ? QString() : ownBooks_->accessibleName());
    ownBooks_->setToolTip(narrow ? ownBooks_->accessibleName() : QString());
    ownBooks_->setIcon(narrow ? Icons::icon(QStringLiteral("chevron-left"), &Colors::text) : QIcon());
    for (QPushButton* button : {ownBooks_, saving_})
        button->setStyleSheet(narrow ? QStringLiteral("padding: 0; text-align: center") : QString());
    refresh();
}

void Sidebar::recount() {
    const Library& library = model_.library();
    background_.cancel();
    if (isQuick(library)) {
        waits_ = waiting(library, model_.today());
        return refresh();
    }
    refresh();
    background_.start([this, library, today = model_.today()](const std::atomic<bool>&) {
        return [this, waits = waiting(library, today)] {
            waits_ = waits;
            refresh();
        };
    });
}

void Sidebar::refresh() {
    const Library& library = model_.library();
    const QString name = library.business.name.empty() ? tr("My books") : toQt(library.business.name);
    name_->setText(name_->fontMetrics().elidedText(name, Qt::ElideRight, 138));
    name_->setToolTip(name);
    check();
    for (SidebarItem* item : lists_) {
        const std::size_t count = waits_.expenses.of(item->list);
        item->setCount(item->list == ExpenseList::mileage ? 0 : count);
        // A list that nothing belongs to would be a dead end; the one being looked at stays.
        item->setVisible(screen_ == Screen::expenses && (count > 0 || item->isChecked()));
    }
    const auto badge = [this](Screen screen, std::size_t count, const QString& words) {
        SidebarItem* item = screens_[static_cast<std::size_t>(screen)];
        item->setCount(count);
        item->setAccessibleDescription(count == 0 ? QString() : words.arg(count));
    };
    badge(Screen::expenses, waits_.expenses.incomplete, tr("%1 without a category or an exchange rate"));
    badge(Screen::invoices, waits_.invoices, tr("%1 overdue"));
    badge(Screen::bank, waits_.bank, tr("%1 to match"));
    for (const auto* items : {&screens_, &lists_})
        for (SidebarItem* item : *items) item->refreshTip(narrow_);
    settings_->refreshTip(narrow_);
    refreshSaving();
    update();
}

void Sidebar::refreshSaving() {
    const AppModel::Saving saving = model_.saving();
    saving_->setVisible(model_.state() == AppModel::State::open);
    const bool failed = saving == AppModel::Saving::failed;
    const QString text = failed                                ? tr("Couldn’t save")
                         : saving == AppModel::Saving::pending ? tr("Saving…")
                                                               : tr("Saved");
    saving_->setText(narrow_ ? QString() : QLatin1Char(' ') + text);
    saving_->setAccessibleName(text);
    saving_->setToolTip(failed    ? model_.saveProblem() + QStringLiteral("\n") + tr("Click to try again.")
                        : narrow_ ? text
                                  : QString());
    saving_->setIcon(failed                                ? Icons::icon(QStringLiteral("alert"), &Colors::danger)
                     : saving == AppModel::Saving::pending ? Icons::icon(QStringLiteral("saving"), &Colors::muted)
                                                           : Icons::icon(QStringLiteral("check"), &Colors::success));
    Controls::restyle(*saving_, "failed", failed);
}

void Sidebar::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.fillRect(rect(), colors.sidebar);
    painter.fillRect(QRect(width() - 1, 0, 1, height()), colors.border);
}

}  // namespace tamba
