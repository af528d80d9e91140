#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "tests/app/Places.h"
#include "tests/app/Support.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>

namespace tamba {
namespace {

/// The control that a part of one belongs to, such as the line inside a combo box.
QWidget* whole(QWidget* widget) {
    for (QWidget* up = widget->parentWidget(); up && !widget->isWindow(); up = up->parentWidget())
        if (qobject_cast<QComboBox*>(up) || qobject_cast<QAbstractSpinBox*>(up) || qobject_cast<QLineEdit*>(up) ||
            qobject_cast<QTabBar*>(up) || qobject_cast<QHeaderView*>(up))
            return whole(up);
    return widget;
}

bool takesKeys(const QWidget& widget) { return (widget.focusPolicy() & Qt::TabFocus) != 0; }

/// What somebody may use: known kinds of controls, and all that takes the keys or looks as though it could be clicked.
bool isControl(const QWidget& widget) {
    if (qobject_cast<const QHeaderView*>(&widget)) return false;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().contains(QLatin1String("<a "));
    // A table that nothing can be chosen in is only read.
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        return takesKeys(*view) || view->selectionMode() != QAbstractItemView::NoSelection;
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget) ||
           qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QTabBar*>(&widget) || takesKeys(widget) ||
           (widget.testAttribute(Qt::WA_SetCursor) && widget.cursor().shape() == Qt::PointingHandCursor);
}

/// Of buttons of which one is chosen the keys go to that one; arrows lead on to the others.
bool isBesideTheChosen(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (!button || !button->isCheckable() || button->isChecked()) return false;
    if (button->group()) return button->group()->exclusive() && button->group()->checkedButton();
    return button->autoExclusive();
}

/// The keys work these from where they are: the menu key in a line, the arrows beside what is searched for.
bool isWorkedFromBeside(const QWidget& widget) {
    return widget.objectName() == QLatin1String("lineMenu") || widget.objectName() == QLatin1String("searchHits");
}

QList<QWidget*> controls(QWidget& place) {
    QList<QWidget*> found;
    for (QWidget* widget : place.findChildren<QWidget*>())
        if (widget->window() == place.window() && widget->isVisible() && widget->isEnabled() &&
            whole(widget) == widget && isControl(*widget) && !isBesideTheChosen(*widget))
            found << widget;
    return found;
}

QString nameOf(const QWidget& widget) {
    if (!widget.accessibleName().isEmpty()) return widget.accessibleName();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    return {};
}

QString describe(const QWidget& widget) {
    QString text = QString::fromLatin1(widget.metaObject()->className());
    for (const QWidget* up = &widget; up && text.size() < 120; up = up->parentWidget())
        if (!up->objectName().isEmpty()) text += QLatin1Char(' ') + up->objectName();
    return text;
}

/// Whether the eye goes back from `a` to `b`, two places in one group that the keys go through in this order.
bool goesBack(const QRect& a, const QRect& b) {
    const bool above = b.bottom() < a.top();
    const bool below = b.top() > a.bottom();
    const bool left = b.right() < a.left();
    const bool right = b.left() > a.right();
    return (above && !right) || (left && !below);
}

/// The parts, one in the other, that lie directly in what holds both widgets.
std::pair<QRect, QRect> beside(QWidget* a, QWidget* b) {
    while (!a->parentWidget()->isAncestorOf(b)) a = a->parentWidget();
    while (b->parentWidget() != a->parentWidget()) b = b->parentWidget();
    return {a->geometry(), b->geometry()};
}

struct Rule {
    QString selector;
    QMap<QString, QString> properties;
};

std::vector<Rule> rulesOf(QString sheet) {
    sheet.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/")));
    std::vector<Rule> rules;
    for (const QString& block : sheet.split(QLatin1Char('}'), Qt::SkipEmptyParts)) {
        const QStringList halves = block.split(QLatin1Char('{'));
        if (halves.size() != 2) continue;
        QMap<QString, QString> properties;
        for (const QString& property : halves[1].split(QLatin1Char(';'), Qt::SkipEmptyParts))
            properties[property.section(QLatin1Char(':'), 0, 0).trimmed()] =
                property.section(QLatin1Char(':'), 1).trimmed();
        for (const QString& selector : halves[0].split(QLatin1Char(',')))
            rules.push_back({selector.trimmed(), properties});
    }
    return rules;
}

}  // namespace

/// That the program can be used without a mouse, without seeing well and without seeing at all.
class AccessibilityTests : public QObject {
    Q_OBJECT

    QStringList problems_;

    void note(const QString& place, const char* what, const QWidget& widget) {
        const QString problem = QStringLiteral("%1: %2").arg(QLatin1String(what), describe(widget));
        for (const QString& known : problems_)
            if (known.endsWith(problem)) return;
        problems_ << place + QStringLiteral(": ") + problem;
    }

    /// Goes around with Tab until it comes back to where it began.
    QList<QPointer<QWidget>> walk(const QString& name, QWidget& place) {
        QList<QPointer<QWidget>> stops;
        QImage before;
        for (int i = 0; i < 400; ++i) {
            QWidget* from = QApplication::focusWidget();
            QTest::keyClick(from ? from : place.window(), Qt::Key_Tab);
            // A date is gone through by day, month and year.
            for (int part = 0; part < 3 && from && QApplication::focusWidget() == from; ++part)
                QTest::keyClick(from, Qt::Key_Tab);
            QWidget* to = QApplication::focusWidget();
            // One stop alone keeps the keys.
            if (to && to == from && stops == QList{QPointer(to)} && controls(place).size() == 1) return stops;
            if (!stops.isEmpty() && stops.back() && whole(stops.back())->grab().toImage() == before)
                note(name, "does not show that it has the keys", *stops.back());
            if (!to || stops.contains(to)) {
                if (to && to == from) note(name, "does not let go of the keys", *to);
                return stops;
            }
            stops << to;
            before = whole(to)->grab().toImage();
        }
        problems_ << name + QStringLiteral(": Tab comes to no end");
        return stops;
    }

private slots:
    void everyControlIsNamedReachedAndSeen() {
        visitPlaces([this](const QString& name, QWidget& place) {
            for (QWidget* control : controls(place))
                if (nameOf(*control).isEmpty()) note(name, "has no name", *control);
            // It keeps the keys until Escape gives them back.
            if (name.startsWith(QLatin1String("search"))) return;
            // A refreshed list has new rows with the old names.
            QStringList known;
            QList<QWidget*> reached;
            for (const QPointer<QWidget>& stop : walk(name, place))
                if (stop) {
                    reached << whole(stop);
                    known << describe(*reached.back());
                }
            for (QWidget* control : controls(place))
                if (!known.contains(describe(*control)) && !isWorkedFromBeside(*control))
                    note(name, "is not reached with Tab", *control);
            QStringList back;
            for (int i = 0; i < reached.size(); ++i) {
                QWidget *a = reached[i], *b = reached[(i + 1) % reached.size()];
                if (a == b || a->isAncestorOf(b) || b->isAncestorOf(a)) continue;
                const auto [one, other] = beside(a, b);
                if (goesBack(one, other)) back << describe(*a) + QStringLiteral(" -> ") + describe(*b);
            }
            // Once around, the eye goes back to the beginning.
            if (back.size() > 1)
                problems_ << name + QStringLiteral(": Tab goes back\n    ") + back.join(QStringLiteral("\n    "));
        });
        for (const QString& problem : problems_) qWarning("%s", qPrintable(problem));
        QVERIFY(problems_.isEmpty());
    }

    void textStandsOutFromItsGround_data() {
        QTest::addColumn<bool>("dark");
        QTest::addColumn<QString>("accent");
        for (const bool dark : {false, true})
            for (const char* accent : {"1E4A66", "000000", "FFFFFF", "FFFF00", "00FF00", "00FFFF", "0000FF", "FF0000",
                                       "FF00FF", "808080", "767676"})
                QTest::addRow("%s on %s", accent, dark ? "dark" : "light") << dark << QString::fromLatin1(accent);
    }
    void textStandsOutFromItsGround() {
        QFETCH(bool, dark);
        QFETCH(QString, accent);
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        const Colors colors = Colors::make(dark, Icons::colorOf(toStd(accent)));
        Style::apply(application, colors);
        const auto rules = rulesOf(application.styleSheet());
        QVERIFY(rules.size() > 50);
        Style::apply(application, Colors::make(false, Icons::colorOf("1E4A66")));

        QStringList weak;
        const auto compare = [&](const QString& what, const QColor& ink, const QColor& ground) {
            if (contrast(ink, ground) < 4.5F)
                weak << QStringLiteral("%1: %2 on %3, %4")
                            .arg(what, ink.name(), ground.name())
                            .arg(static_cast<double>(contrast(ink, ground)), 0, 'f', 2);
        };
        // A state keeps of its control what it does not change itself.
        QMap<QString, QMap<QString, QString>> plain;
        for (const Rule& rule : rules) {
            const QString control = rule.selector.section(QLatin1Char(':'), 0, 0);
            if (rule.selector == control) plain[control].insert(rule.properties);
            // What cannot be used now may be faint.
            if (rule.selector.contains(QLatin1String(":disabled"))) continue;
            QMap<QString, QString> all = plain[control];
            all.insert(rule.properties);
            const QColor ink(all.value(QStringLiteral("color")));
            if (!ink.isValid()) continue;
            const QColor ground(all.value(QStringLiteral("background")));
            if (ground.alpha() > 0 && ground.isValid()) {
                compare(rule.selector, ink, ground);
            } else if (!control.startsWith(QLatin1String("#toast"))) {
                compare(rule.selector, ink, colors.surface);
                compare(rule.selector, ink, colors.window);
            }
        }
        const QPalette palette = colors.palette();
        const std::tuple<const char*, QPalette::ColorRole, QPalette::ColorRole> roles[] = {
            {"text", QPalette::Text, QPalette::Base},
            {"text of windows", QPalette::WindowText, QPalette::Window},
            {"hint in a field", QPalette::PlaceholderText, QPalette::Base},
            {"selected text", QPalette::HighlightedText, QPalette::Highlight},
            {"link", QPalette::Link, QPalette::Base},
            {"tool tip", QPalette::ToolTipText, QPalette::ToolTipBase}};
        for (const auto& [what, ink, ground] : roles)
            compare(QLatin1String(what), palette.color(ink), palette.color(ground));
        // Painted by the tables, the sidebar and the charts themselves.
        const std::tuple<const char*, QColor, QColor> painted[] = {
            {"cell", colors.text, colors.accentTint},
            {"small print of a cell", colors.muted, colors.accentTint},
            {"refused", colors.danger, colors.accentTint},
            {"pill", colors.muted, colors.neutralTint},
            {"good pill", colors.success, colors.successTint},
            {"warning pill", colors.warning, colors.warningTint},
            {"refusal pill", colors.danger, colors.dangerTint},
            {"sidebar", colors.muted, colors.sidebar},
            {"screen chosen", colors.text, mixed(colors.sidebar, colors.accent, dark ? 0.24F : 0.13F)}};
        for (const auto& [what, ink, ground] : painted) compare(QLatin1String(what), ink, ground);
        QVERIFY2(weak.isEmpty(), qPrintable(QLatin1Char('\n') + weak.join(QLatin1Char('\n'))));
    }
};

static const TestClass<AccessibilityTests> registered;

}  // namespace tamba

#include "AccessibilityTests.moc"
