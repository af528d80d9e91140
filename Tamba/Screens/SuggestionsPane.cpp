#include "Tamba/Screens/SuggestionsPane.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/OverviewRows.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Documents/Expenses.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tamba {
namespace {

constexpr int paneWidth = 360, wordsWidth = 320;

/// A suggestion as a card: its key, what it is, why, and how sure that is as a quiet bar.
class ChoiceCard : public QAbstractButton {
public:
    ChoiceCard(const MatchChoice& choice, int key, QWidget* parent) : QAbstractButton(parent), choice_(choice) {
        setObjectName(QStringLiteral("choice%1").arg(key));
        setText(QString::number(key));
        setFixedHeight(72);
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::PointingHandCursor);
        QStringList words{toQt(choice.title), toQt(choice.amount), toQt(choice.detail), toQt(choice.outcome),
                          toQt(choice.reason)};
        words.removeAll(QString());
        setToolTip(words.join(QLatin1Char('\n')));
        setAccessibleName(words.join(QStringLiteral(", ")));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(hasFocus() ? colors.accent : colors.strongBorder, 1));
        painter.setBrush(isDown() ? colors.accentTint : underMouse() ? colors.hover : colors.surface);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);

        const QRectF key(10, 10, 20, 20);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.neutralTint);
        painter.drawRoundedRect(key, 5, 5);
        painter.setPen(colors.muted);
        painter.setFont(Style::textFont(11, QFont::DemiBold));
        painter.drawText(key, Qt::AlignCenter, text());

        const int left = 40, right = width() - 12;
        painter.setPen(colors.text);
        painter.setFont(Style::textFont(13, QFont::DemiBold));
        const QString amount = toQt(choice_.amount);
        const int wide = painter.fontMetrics().horizontalAdvance(amount);
        drawWords(painter, QRect(left, 9, right - left, 20), toQt(choice_.title));
        painter.drawText(QRect(right - wide, 27, wide, 18), Qt::AlignVCenter | Qt::AlignRight, amount);
        painter.setFont(Style::textFont(11, choice_.outcome.empty() ? QFont::Normal : QFont::DemiBold));
        painter.setPen(choice_.outcome.empty() ? colors.muted : colors.accent);
        drawWords(painter, QRect(left, 28, right - left - wide - 10, 16),
                  toQt(choice_.outcome.empty() ? choice_.detail : choice_.outcome));
        painter.setFont(Style::textFont(11));
        painter.setPen(colors.muted);
        drawWords(painter, QRect(left, 44, right - left, 16), toQt(choice_.reason));

        const QRectF bar(left, height() - 9, right - left, 3);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.neutralTint);
        painter.drawRoundedRect(bar, 1.5, 1.5);
        painter.setBrush(colors.accent);
        painter.drawRoundedRect(QRectF(bar.left(), bar.top(), bar.width() * choice_.score / 100.0, bar.height()), 1.5,
                                1.5);
    }

private:
    static void drawWords(QPainter& painter, const QRect& box, const QString& words) {
        painter.drawText(box, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(words, Qt::ElideRight, box.width()));
    }
    MatchChoice choice_;
};

/// Bank narrations have no blanks for long stretches; after their own marks they may break.
QString breakable(const std::string& narration) {
    QString text = toQt(narration);
    for (const char16_t mark : {u'/', u'-', u'@', u'*', u'_', u':', u','})
        text.replace(QChar(mark), QString(QChar(mark)) + QChar(0x200B));
    return text;
}

/// Text for a button, where "&" would mark a key.
QString asCaption(QString text) { return text.replace(QLatin1Char('&'), QStringLiteral("&&")); }

void clear(QVBoxLayout& list) {
    while (QLayoutItem* item = list.takeAt(0)) {
        // Deleted when the event loop comes round: it may be one of its own buttons that asked.
        if (QWidget* widget = item->widget()) widget->hide(), widget->deleteLater();
        delete item;
    }
}

const char* pillOf(Tone tone) { return tone == Tone::good ? "good" : tone == Tone::warning ? "warning" : "neutral"; }

}  // namespace

SuggestionsPane::SuggestionsPane(AppModel& model, Prompts& prompts, QWidget* parent)
    : QFrame(parent), model_(model), prompts_(prompts) {
    setObjectName(QStringLiteral("inspector"));
    setFixedWidth(paneWidth);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(1, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(head_ = makeHead());
    none_ = Controls::label(tr("Select a line to see what it could be."), "field", this);
    none_->setAlignment(Qt::AlignCenter);
    rows->addWidget(none_, 1);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(makeBody());
    body_ = scroll;
    rows->addWidget(body_, 1);
    keys_ = Controls::label({}, "caption", this);
    keys_->setObjectName(QStringLiteral("bankKeys"));
    auto* strip = new QHBoxLayout;  // a label with a style has no margins of its own
    strip->setContentsMargins(20, 8, 16, 12);
    strip->addWidget(keys_);
    rows->addLayout(strip);
    connect(&model_, &AppModel::changed, this, [this] {
        stale_ = true;
        if (isVisible()) refresh();
    });
    connect(&model_, &AppModel::opened, this, [this] {
        created_.reset();
        setLine({});
    });
    refresh();
}

QWidget* SuggestionsPane::makeHead() {
    auto* head = new QFrame(this);
    head->setObjectName(QStringLiteral("paneHead"));
    auto* rows = new QVBoxLayout(head);
    rows->setContentsMargins(20, 14, 18, 14);
    rows->setSpacing(3);
    auto* top = new QHBoxLayout;
    day_ = Controls::label({}, "caption", head);
    pill_ = new QLabel(head);
    pill_->setObjectName(QStringLiteral("pill"));
    top->addWidget(day_, 1);
    top->addWidget(pill_);
    rows->addLayout(top);
    amount_ = new QLabel(head);
    amount_->setObjectName(QStringLiteral("lineAmount"));
    amount_->setFont(Style::textFont(22, QFont::DemiBold));
    name_ = new QLabel(head);
    name_->setObjectName(QStringLiteral("lineName"));
    name_->setFont(Style::textFont(14, QFont::DemiBold));
    narration_ = Controls::label({}, "field", head);
    more_ = Controls::label({}, "caption", head);
    for (QLabel* label : {name_, narration_, more_}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
    }
    for (QLabel* label : {amount_, name_, narration_, more_}) rows->addWidget(label);
    return head;
}

QWidget* SuggestionsPane::makeBody() {
    auto* body = new QWidget;
    auto* rows = new QVBoxLayout(body);
    rows->setContentsMargins(20, 14, 18, 14);
    rows->setSpacing(8);

    offerBox_ = new QFrame(body);
    offerBox_->setObjectName(QStringLiteral("card"));
    auto* offer = new QVBoxLayout(offerBox_);
    offer->setContentsMargins(12, 10, 12, 10);
    offer->setSpacing(6);
    offerText_ = Controls::label({}, "field", offerBox_);
    offerText_->setWordWrap(true);
    addRule_ = Controls::button({}, "addRule", Controls::Kind::plain, offerBox_);
    offer->addWidget(offerText_);
    offer->addWidget(addRule_);
    rows->addWidget(offerBox_);

    section_ = Controls::label({}, "section", body);
    rows->addWidget(section_);
    list_ = new QVBoxLayout;
    list_->setSpacing(8);
    rows->addLayout(list_);
    nothing_ = Controls::label({}, "field", body);
    nothing_->setWordWrap(true);
    rows->addWidget(nothing_);

    categoryRow_ = new QWidget(body);
    auto* category = new QHBoxLayout(categoryRow_);
    category->setContentsMargins(0, 6, 0, 0);
    category->setSpacing(10);
    category->addWidget(Controls::label(tr("Category"), "field", categoryRow_));
    category_ = makeChoice(categoryRow_);
    Controls::name(*category_, "lineCategory", tr("Category"));
    category_->view()->installEventFilter(this);
    category->addWidget(category_, 1);
    rows->addWidget(categoryRow_);
    create_ = Controls::button(tr("Create Expense"), "createExpense", Controls::Kind::plain, body);
    split_ = Controls::button(tr("Split Over Several Invoices…"), "splitLine", Controls::Kind::plain, body);
    aside_ = Controls::button({}, "setAside", Controls::Kind::plain, body);
    unmatch_ = Controls::button(tr("Unmatch"), "unmatch", Controls::Kind::plain, body);
    for (QPushButton* button : {create_, split_, aside_, unmatch_}) rows->addWidget(button);
    rows->addStretch(1);

    connect(create_, &QPushButton::clicked, this, &SuggestionsPane::createExpense);
    connect(split_, &QPushButton::clicked, this, &SuggestionsPane::split);
    connect(aside_, &QPushButton::clicked, this, &SuggestionsPane::toggleAside);
    connect(unmatch_, &QPushButton::clicked, this, &SuggestionsPane::unmatch);
    connect(addRule_, &QPushButton::clicked, this, &SuggestionsPane::addRule);
    connect(category_, &QComboBox::activated, this, &SuggestionsPane::changeCategory);
    return body;
}

const BankTransaction* SuggestionsPane::shown() const {
    return id_ ? tamba::find(model_.library().transactions, *id_) : nullptr;
}

const Expense* SuggestionsPane::matchedExpense() const {
    const BankTransaction* line = shown();
    return line && line->expenseID ? model_.library().expense(*line->expenseID) : nullptr;
}

void SuggestionsPane::setLine(const std::optional<UUID>& id) {
    if (id == id_ && id && !stale_) return;
    id_ = id;
    refresh();
}

void SuggestionsPane::fillMenu(QMenu& menu) {
    const BankTransaction* line = shown();
    if (!line) return;
    catchUp();
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        const MatchChoice& choice = choices_[i];
        QAction* action =
            menu.addAction(tr("Match with %1").arg(toQt(choice.title).replace(QLatin1Char('&'), QStringLiteral("&&"))),
                           this, [this, i] { choose(i); });
        action->setToolTip(toQt(choice.reason));
    }
    if (!menu.isEmpty()) menu.addSeparator();
    for (QPushButton* button : {create_, split_, aside_, unmatch_})
        if (!button->isHidden()) menu.addAction(button->text(), button, &QPushButton::click);
}

SuggestionsPane::Answers SuggestionsPane::answersFor(const Library& library, const BankTransaction& line) {
    const bool money = line.amount > 0 && !line.ignored && Bank::unassigned(library, line) > 0;
    return {choicesFor(library, line), proposedExpense(library, line), money && openInvoices(library, line).size() > 1};
}

void SuggestionsPane::refresh() {
    stale_ = false;
    background_.cancel();
    const BankTransaction* line = shown();
    // What is shown of this line stays until there is something newer.
    if (filled_ != id_) choices_.clear();
    head_->setVisible(line != nullptr);
    none_->setVisible(line == nullptr);
    body_->setVisible(line && filled_ == id_);
    keys_->setVisible(line && filled_ == id_);
    if (!line) return;
    fillHead(*line);
    if (isQuick(model_.library())) return fill(answersFor(model_.library(), *line));
    background_.start([this, library = model_.library(), line = *line](const std::atomic<bool>&) {
        const auto answers = std::make_shared<Answers>(answersFor(library, line));
        return [this, answers] { fill(std::move(*answers)); };
    });
}

void SuggestionsPane::catchUp() {
    if (!background_.isBusy()) return;
    background_.cancel();
    if (const BankTransaction* line = shown()) fill(answersFor(model_.library(), *line));
}

void SuggestionsPane::fill(Answers answers) {
    const BankTransaction* line = shown();
    if (!line) return;
    filled_ = id_;
    choices_ = std::move(answers.choices);
    body_->setVisible(true);
    keys_->setVisible(true);
    fillList(*line);
    fillCategory(answers.proposal);
    fillOffer();
    const bool open = line->isOpen();
    split_->setVisible(answers.isSplit);
    aside_->setVisible(!line->isMatched());
    aside_->setText(open ? tr("Set Aside") : tr("Bring Back"));
    aside_->setAccessibleName(aside_->text());
    aside_->setToolTip(open ? tr("Belongs to nothing in the books, such as a transfer between your own accounts (I)")
                            : tr("It waits for a match again (I)"));
    unmatch_->setVisible(line->isMatched());

    QStringList keys;
    if (!choices_.empty()) keys << (choices_.size() == 1 ? tr("1 match") : tr("1–%1 match").arg(choices_.size()));
    if (!categoryRow_->isHidden()) keys << tr("C category");
    if (!create_->isHidden()) keys << tr("E expense");
    if (!split_->isHidden()) keys << tr("S split");
    if (!aside_->isHidden()) keys << (open ? tr("I set aside") : tr("I bring back"));
    if (!unmatch_->isHidden()) keys << tr("U unmatch");
    keys_->setText(tr("Keys: %1").arg(keys.join(QStringLiteral(" · "))));
}

void SuggestionsPane::fillHead(const BankTransaction& line) {
    const BankLineFacts facts = factsOf(model_.library(), line);
    day_->setText(toQt(facts.account.empty() ? facts.day : facts.day + " · " + facts.account));
    day_->setText(day_->fontMetrics().elidedText(day_->text(), Qt::ElideRight, 232));
    pill_->setText(toQt(facts.status));
    Controls::restyle(*pill_, "pill", QString::fromLatin1(pillOf(facts.tone)));
    amount_->setText(toQt(facts.amount));
    setRole(*amount_, facts.in ? "outcome" : "");
    name_->setText(breakable(facts.name));
    narration_->setText(breakable(facts.narration));
    narration_->setAccessibleName(toQt(facts.narration));
    narration_->setVisible(!facts.narration.empty());
    more_->setText(toQt(facts.more));
    more_->setVisible(!facts.more.empty());
}

void SuggestionsPane::fillList(const BankTransaction& line) {
    clear(*list_);
    const Library& library = model_.library();
    nothing_->setVisible(false);
    section_->setVisible(true);
    if (line.isMatched()) {
        section_->setText(tr("Matched to"));
        for (const BankLink& link : linksOf(library, line)) {
            auto* row = new QWidget(this);
            auto* columns = new QHBoxLayout(row);
            columns->setContentsMargins(0, 0, 0, 0);
            auto* amount = new QLabel(toQt(link.amount), row);
            const QString text = toQt(link.text);
            const int room = wordsWidth - amount->sizeHint().width() - 24;
            auto* button = Controls::button({}, "matchedTo", Controls::Kind::link, row);
            button->setText(asCaption(button->fontMetrics().elidedText(text, Qt::ElideRight, room)));
            button->setToolTip(text);
            button->setAccessibleName(text);
            button->setStyleSheet(QStringLiteral("margin-left: -7px"));
            columns->addWidget(button);
            columns->addStretch(1);
            columns->addWidget(amount);
            connect(button, &QPushButton::clicked, this, [this, target = link.target] {
                if (target.kind == MatchSuggestion::Target::Kind::expense)
                    emit expenseChosen(target.id);
                else
                    emit documentChosen(target.id);
            });
            list_->addWidget(row);
        }
        const BankLineFacts facts = factsOf(library, line);
        nothing_->setText(toQt(facts.exchange));
        nothing_->setVisible(!facts.exchange.empty());
        if (!facts.rest.empty()) list_->addWidget(Controls::label(toQt(facts.rest), "warning", this));
        return fillChoices();
    }
    if (line.ignored) {
        section_->setText(tr("Set aside"));
        nothing_->setText(tr("It belongs to nothing in the books."));
        return nothing_->setVisible(true);
    }
    section_->setText(tr("It could be"));
    fillChoices();
    if (!choices_.empty()) return;
    section_->setVisible(false);
    nothing_->setText(line.amount < 0 ? tr("No expense in the books looks like this.")
                                      : tr("No open invoice looks like this."));
    nothing_->setVisible(true);
}

void SuggestionsPane::fillChoices() {
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        auto* card = new ChoiceCard(choices_[i], static_cast<int>(i) + 1, this);
        connect(card, &QAbstractButton::clicked, this, [this, i] { choose(i); });
        list_->addWidget(card);
    }
}

void SuggestionsPane::fillCategory(const std::optional<Expense>& proposal) {
    const Library& library = model_.library();
    const Expense* matched = matchedExpense();
    proposed_ = proposal ? proposal->categoryID : std::nullopt;
    create_->setVisible(proposal.has_value());
    // Where nothing fits, making the expense is what there is to do.
    setRole(*create_, choices_.empty() ? "primary" : "");
    categoryRow_->setVisible(proposal || matched);
    if (!proposal && !matched) return;
    fillCategories(*category_, library);
    const auto id = matched ? matched->categoryID : proposed_;
    chooseData(*category_, id ? toQt(id->text()) : QString());
}

void SuggestionsPane::fillOffer() {
    const Library& library = model_.library();
    const Expense* created = created_ ? library.expense(*created_) : nullptr;
    const Expense* matched = matchedExpense();
    const Expense* expense = matched ? matched : created;
    offer_ = expense ? ruleOffer(library, *expense) : std::nullopt;
    offerBox_->setVisible(offer_.has_value());
    if (!offer_) return;
    const Category* category = library.category(offer_->rule.categoryID);
    offerText_->setText(tr("%1 is filed under %2.").arg(toQt(expense->vendor), toQt(category->name)));
    const QString text = toQt(offer_->text);
    addRule_->setText(asCaption(addRule_->fontMetrics().elidedText(text, Qt::ElideMiddle, wordsWidth - 60)));
    addRule_->setAccessibleName(text);
    addRule_->setToolTip(tr("%1 (R)").arg(text));
}

bool SuggestionsPane::takeKey(int key) {
    catchUp();
    if (key >= Qt::Key_1 && key <= Qt::Key_9) return choose(static_cast<std::size_t>(key - Qt::Key_1)), true;
    switch (key) {
        case Qt::Key_C:
            openCategory();
            return true;
        case Qt::Key_E:
            createExpense();
            return true;
        case Qt::Key_I:
            toggleAside();
            return true;
        case Qt::Key_U:
            unmatch();
            return true;
        case Qt::Key_S:
            split();
            return true;
        case Qt::Key_R:
            addRule();
            return true;
        default:
            return false;
    }
}

bool SuggestionsPane::perform(const QString& title, const std::function<Library(Library, const UUID&)>& change) {
    const BankTransaction* line = shown();
    if (!line) return false;
    created_.reset();  // what was offered about the line before is passed over
    return model_.perform(title, [&, id = line->id](Library library, Day) { return change(std::move(library), id); });
}

void SuggestionsPane::choose(std::size_t index) {
    if (index >= choices_.size()) return;
    const UUID line = *id_;
    const bool done = perform(tr("Match Bank Line"), [choice = choices_[index]](Library library, const UUID& id) {
        if (choice.payment) return Bank::matchToPayment(std::move(library), id, choice.target.id, *choice.payment);
        return choice.target.kind == MatchSuggestion::Target::Kind::expense
                   ? Bank::matchToExpense(std::move(library), id, choice.target.id)
                   : Bank::matchToInvoice(std::move(library), id, choice.target.id, choice.remainder);
    });
    if (done) emit settled(line);
}

void SuggestionsPane::createExpense() {
    if (create_->isHidden() || !shown()) return;
    const UUID line = *id_;
    const auto category = UUID::parse(toStd(category_->currentData().toString()));
    const bool corrected = category != proposed_;
    std::optional<UUID> made;
    const bool done = perform(tr("Create Expense"), [&](Library library, const UUID& id) {
        Bank::Created created = Bank::createExpense(std::move(library), id);
        made = created.expense->id;
        if (!corrected) return created.library;
        Expense expense = Expenses::withCategory(created.library, *created.expense, category);
        return Expenses::replace(std::move(created.library), std::move(expense));
    });
    if (!done) return;
    created_ = corrected ? made : std::nullopt;
    fillOffer();
    emit settled(line);
}

void SuggestionsPane::toggleAside() {
    const BankTransaction* line = shown();
    if (!line || line->isMatched()) return;
    const UUID id = line->id;
    const bool aside = line->isOpen();
    const bool done =
        perform(aside ? tr("Set Line Aside") : tr("Bring Line Back"),
                [aside](Library library, auto& each) { return Bank::setIgnored(std::move(library), each, aside); });
    if (done && aside) emit settled(id);
}

void SuggestionsPane::unmatch() {
    const BankTransaction* line = shown();
    if (!line || !line->isMatched()) return;
    perform(tr("Unmatch Line"), [](Library library, auto& id) { return Bank::unmatch(std::move(library), id); });
}

void SuggestionsPane::split() {
    if (split_->isHidden() || !shown()) return;
    const UUID line = *id_;
    BankTransaction rest = *shown();
    rest.amount = Bank::unassigned(model_.library(), rest);
    const auto shares = prompts_.shares(model_.library(), rest);
    if (shares.empty()) return;
    const bool done = perform(tr("Split Receipt"), [&shares](Library library, auto& id) {
        return Bank::splitReceipt(std::move(library), id, shares);
    });
    if (done) emit settled(line);
}

void SuggestionsPane::openCategory() {
    if (categoryRow_->isHidden() || !shown()) return;
    openedByKey_ = true;
    category_->setFocus(Qt::ShortcutFocusReason);
    category_->showPopup();
}

bool SuggestionsPane::eventFilter(QObject* watched, QEvent* event) {
    // The list closes. What was chosen in it comes after this.
    if (watched == category_->view() && event->type() == QEvent::Hide && openedByKey_) {
        openedByKey_ = false;
        QMetaObject::invokeMethod(this, &SuggestionsPane::keysReturned, Qt::QueuedConnection);
    }
    return QFrame::eventFilter(watched, event);
}

void SuggestionsPane::changeCategory() {
    const Expense* expense = matchedExpense();
    if (!expense) return;  // it is for the expense that is still to be made
    const auto category = UUID::parse(toStd(category_->currentData().toString()));
    model_.perform(tr("Change Category"), [id = expense->id, category](Library library, Day) {
        const Expense* present = library.expense(id);
        if (!present) return library;
        return Expenses::replace(library, Expenses::withCategory(library, *present, category));
    });
}

void SuggestionsPane::addRule() {
    if (!offer_) return;
    model_.perform(tr("Add Rule"),
                   [rule = offer_->rule](Library library, Day) { return Rules::put(std::move(library), rule); });
}

}  // namespace tamba
