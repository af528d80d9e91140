#include "Tamba/Screens/WelcomeScreen.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/LookFields.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Pages/InvoicePDF.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tamba {
namespace {

constexpr int stepCount = 4;
constexpr int fieldsWidth = 470;

}  // namespace

/// How far the steps have come.
class WelcomeScreen::Steps : public QWidget {
public:
    explicit Steps(QWidget* parent) : QWidget(parent) { setFixedSize(stepCount * 44 - 8, 4); }
    void set(int step) {
        step_ = step;
        setAccessibleName(QObject::tr("Step %1 of %2").arg(step + 1).arg(stepCount));
        update();
    }
    [[nodiscard]] int step() const { return step_; }

protected:
    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < stepCount; ++i) {
            painter.setBrush(i <= step_ ? colors.accent : colors.border);
            painter.drawRoundedRect(QRectF(i * 44, 0, 36, 4), 2, 2);
        }
    }

private:
    int step_ = 0;
};

/// The first page of an invoice as these books would make it.
class WelcomeScreen::Sample : public QWidget {
public:
    explicit Sample(QWidget* parent) : QWidget(parent) {
        setFixedSize(300, qRound(300 * InvoicePDF::pageSize.height / InvoicePDF::pageSize.width));
        setAccessibleName(QObject::tr("How an invoice will look"));
        wait_.setSingleShot(true);
        wait_.setInterval(120);
        wait_.callOnTimeout(this, [this] {
            stale_ = true;
            update();
        });
    }
    void set(const Library& library, const std::optional<std::filesystem::path>& logo, Day today) {
        library_ = library;
        logo_ = logo;
        today_ = today;
        wait_.start();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        if (std::exchange(stale_, false)) draw();
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.fillRect(rect(), Qt::white);
        painter.drawImage(rect(), page_);
        painter.setPen(Colors::current().border);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    void draw() {
        const LookSample sample = lookSample(library_, today_);
        PDFCanvas canvas = PDFCanvas::bitmap(InvoicePDF::pageSize, 2 * width() / InvoicePDF::pageSize.width);
        InvoicePDF::draw(canvas, sample.library, sample.invoice, logo_ ? ImageFile::load(*logo_) : std::nullopt);
        if (const auto image = canvas.image())
            page_ = QImage(image->pixels.data(), image->width, image->height, image->width * 4, QImage::Format_RGBA8888)
                        .copy();
    }

    Library library_;
    std::optional<std::filesystem::path> logo_;
    Day today_;
    QTimer wait_;
    bool stale_ = false;
    QImage page_;
};

WelcomeScreen::WelcomeScreen(AppModel& model, Prompts& prompts, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), folder_(model.folder()) {
    setObjectName(QStringLiteral("welcomeScreen"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(48, 40, 48, 40);
    rows->setSpacing(0);
    steps_ = new Steps(this);
    pages_ = new QStackedWidget(this);
    pages_->setFixedWidth(fieldsWidth);
    // What is typed is seen where it will stand.
    sample_ = new Sample(this);
    makeBusiness();
    makeTax();
    makeLook();
    makePlace();
    auto* middle = new QWidget(this);
    middle->setFixedWidth(fieldsWidth + 40 + 300);
    auto* columns = new QHBoxLayout(middle);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(40);
    auto* column = new QVBoxLayout;
    column->setSpacing(20);
    column->addWidget(steps_);
    column->addWidget(pages_, 1);
    column->addWidget(makeButtons());
    columns->addLayout(column);
    columns->addWidget(sample_, 0, Qt::AlignTop);
    rows->addStretch(1);
    rows->addWidget(middle, 0, Qt::AlignHCenter);
    rows->addStretch(2);

    for (QLineEdit* field : {name_, taxID_, prefix_})
        connect(field, &QLineEdit::textChanged, this, &WelcomeScreen::refresh);
    for (QComboBox* field : {state_, regime_})
        connect(field, &QComboBox::currentIndexChanged, this, &WelcomeScreen::refresh);
    connect(accent_, &AccentField::edited, this, &WelcomeScreen::refresh);
    connect(logo_, &LogoField::edited, this, &WelcomeScreen::refresh);
    // Other books, which may be new ones as well.
    connect(&model_, &AppModel::opened, this, [this] {
        folder_ = model_.folder();
        refresh();
    });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] {
            if (auto* button = qobject_cast<QPushButton*>(focusWidget())) return button->click();
            next();
        });
    }
    showStep(0);
}

Form* WelcomeScreen::addStep(const QString& title, const QString& words) {
    auto* fields = new QWidget(pages_);
    auto* column = new QVBoxLayout(fields);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(Controls::label(title, "title", fields));
    auto* sentence = Controls::label({}, "field", fields);
    sentence->setText(Controls::wrapped(words, *sentence, fieldsWidth));
    column->addWidget(sentence);
    column->addSpacing(14);
    auto* form = new Form(*fields, 128);
    form->setNoteWidth(fieldsWidth - 140);
    column->addLayout(form);
    column->addStretch(1);
    pages_->addWidget(fields);
    return form;
}

void WelcomeScreen::makeBusiness() {
    Form* form = addStep(tr("Welcome to Tamba"),
                         tr("Your books stay on this computer, in a folder of yours. Four short steps, and only the "
                            "name has to be given; everything can be changed later in the settings."));
    name_ = form->line(tr("Business name"), "welcomeName", model_.library().business.name);
    name_->setPlaceholderText(tr("As it stands on your invoices"));
    state_ = form->combo(tr("State"), "welcomeState");
    fillStates(*state_, tr("Choose later"));
    form->note(tr("Whether an invoice carries CGST + SGST or IGST depends on it."));
    first_.push_back(name_);
}

void WelcomeScreen::makeTax() {
    taxForm_ = addStep(tr("How do you charge tax?"),
                       tr("Registered for GST, enter your GSTIN; it gives your state and PAN, too. Not registered, "
                          "choose that and invoices carry no tax."));
    regime_ = taxForm_->combo(tr("Tax"), "welcomeRegime");
    for (const TaxRegime regime : {TaxRegime::gstIndia, TaxRegime::gstComposition, TaxRegime::simple, TaxRegime::none})
        regime_->addItem(Translations::shown(title(regime)), static_cast<int>(regime));
    taxID_ = taxForm_->line(tr("GSTIN"), "welcomeTaxID");
    taxIDNote_ = taxForm_->note();
    first_.push_back(taxID_);
}

void WelcomeScreen::makeLook() {
    lookForm_ =
        addStep(tr("How should invoices look?"), tr("A colour, a logo if you have one, and how numbers begin."));
    const Business& business = model_.library().business;
    accent_ = new AccentField(business.accentHex, this);
    lookForm_->row(tr("Accent colour"), accent_);
    logo_ = new LogoField({}, [this] { return prompts_.pictureFile(); }, this);
    lookForm_->row(tr("Logo"), logo_);
    prefix_ = lookForm_->line(tr("Numbers begin with"), "welcomePrefix", SetUp().prefix);
    number_ = lookForm_->note();
    number_->setObjectName(QStringLiteral("welcomeNumber"));
    first_.push_back(accent_);
}

void WelcomeScreen::makePlace() {
    Form* form = addStep(tr("Where should the books live?"),
                         tr("One folder holds everything: the books, receipts, invoices and a backup of every day. A "
                            "folder that is kept in step between computers works, too."));
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 6, 0, 0);
    column->setSpacing(8);
    place_ = new QLabel(box);
    place_->setObjectName(QStringLiteral("welcomeFolder"));
    auto* choose = Controls::button(tr("Choose Another Folder…"), "welcomeChooseFolder", Controls::Kind::plain, box);
    column->addWidget(place_);
    column->addWidget(choose, 0, Qt::AlignLeft);
    form->row(tr("Folder"), box);
    connect(choose, &QPushButton::clicked, this, &WelcomeScreen::chooseFolder);
    first_.push_back(nullptr);
}

QWidget* WelcomeScreen::makeButtons() {
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(8);
    next_ = Controls::button(tr("Next"), "welcomeNext", Controls::Kind::primary, box);
    lookAround_ = Controls::button(tr("Look Around First"), "welcomeLookAround", Controls::Kind::plain, box);
    back_ = Controls::button(tr("Back"), "welcomeBack", Controls::Kind::plain, box);
    skip_ = Controls::button(tr("Skip to My First Invoice"), "welcomeSkip", Controls::Kind::link, box);
    sampleBooks_ = Controls::button(tr("Explore the Sample Books"), "welcomeSample", Controls::Kind::link, box);
    sampleBooks_->setToolTip(tr("Opens sample books for a made-up studio, in a folder of their own."));
    for (QPushButton* button : {next_, lookAround_, back_, skip_, sampleBooks_}) row->addWidget(button);
    row->addStretch(1);
    first_.back() = next_;
    connect(next_, &QPushButton::clicked, this, &WelcomeScreen::next);
    connect(back_, &QPushButton::clicked, this, [this] { showStep(steps_->step() - 1); });
    connect(skip_, &QPushButton::clicked, this, [this] { finish(true); });
    connect(lookAround_, &QPushButton::clicked, this, [this] { finish(false); });
    connect(sampleBooks_, &QPushButton::clicked, this, &WelcomeScreen::sampleChosen);
    return box;
}

void WelcomeScreen::showStep(int step) {
    if (step < 0 || step >= stepCount) return;
    steps_->set(step);
    pages_->setCurrentIndex(step);
    QWidget* first = first_[static_cast<std::size_t>(step)];
    setFocusProxy(first);
    refresh();
    first->setFocus();
}

void WelcomeScreen::next() {
    if (!next_->isEnabled()) return;
    if (steps_->step() + 1 == stepCount) return finish(true);
    showStep(steps_->step() + 1);
}

SetUp WelcomeScreen::setUp() const {
    SetUp result;
    result.name = toStd(name_->text());
    const std::string state = toStd(state_->currentData().toString());
    if (!state.empty()) result.stateCode = state;
    result.regime = static_cast<TaxRegime>(regime_->currentData().toInt());
    result.taxID = toStd(taxID_->text());
    result.accentHex = accent_->hex().value_or(result.accentHex);
    result.prefix = toStd(prefix_->text());
    return result;
}

void WelcomeScreen::refresh() {
    const SetUp now = setUp();
    const Library library = withSetUp(model_.library(), now);
    const int step = steps_->step();
    const bool named = !library.business.name.empty();
    taxForm_->setRowVisible(taxID_, now.regime != TaxRegime::none);
    if (auto* label = qobject_cast<QLabel*>(taxForm_->labelForField(taxID_)))
        label->setText(isIndia(now.regime) ? tr("GSTIN") : tr("Tax number"));
    taxForm_->setNote(*taxIDNote_, *taxID_, taxIDNote(now.regime, now.taxID));
    lookForm_->setNote(*number_, *prefix_, firstNumberNote(library, model_.today()));
    sample_->set(library, logo_->chosen(), model_.today());
    place_->setText(place_->fontMetrics().elidedText(toQt(folder_), Qt::ElideMiddle, fieldsWidth - 140));
    place_->setToolTip(toQt(folder_));
    const bool last = step + 1 == stepCount;
    back_->setVisible(step > 0);
    lookAround_->setVisible(last);
    skip_->setVisible(step > 0 && !last);
    sampleBooks_->setVisible(step == 0);
    next_->setText(last ? tr("Make My First Invoice") : tr("Next"));
    next_->setAccessibleName(next_->text());
    next_->setEnabled(named);
}

void WelcomeScreen::chooseFolder() {
    const auto folder = prompts_.libraryFolder(folder_);
    if (!folder) return;
    const auto place = LibraryStore::placeIn(*folder);
    if (!model_.attempt([&] {
            if (Files::exists(LibraryStore(place).fileURL()) &&
                prompts_.confirm(tr("There are books in this folder already"),
                                 tr("They can be opened as they are, without these steps."), tr("Open Them")))
                model_.open(place);
            else if (!Files::exists(LibraryStore(place).fileURL()))
                folder_ = place;
        }))
        return;
    refresh();
}

void WelcomeScreen::finish(bool firstInvoice) {
    if (folder_ != model_.folder() && !model_.open(std::filesystem::path(folder_))) return;
    if (!model_.isNew()) return;
    const bool done = model_.perform(
        tr("Set Up"),
        [&, store = model_.store()](Library library, Day) {
            library = withSetUp(std::move(library), setUp());
            if (logo_->chosen()) library.business.logoFile = store.importLogo(*logo_->chosen());
            return library;
        },
        AppModel::Undo::beginsNewHistory);
    if (done && model_.saveNow()) emit finished(firstInvoice);
}

}  // namespace tamba
