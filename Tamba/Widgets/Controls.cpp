#include "Tamba/Widgets/Controls.h"

#include "Tamba/Icons.h"
#include "Tamba/Style.h"

#include <QStyle>

namespace tamba::Controls {

QLabel* label(const QString& text, const char* role, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setProperty("role", QString::fromLatin1(role));
    if (qstrcmp(role, "title") == 0) label->setFont(Style::titleFont(20));
    return label;
}

void name(QWidget& widget, const char* name, const QString& accessible) {
    widget.setObjectName(QString::fromLatin1(name));
    widget.setAccessibleName(accessible);
}

QPushButton* button(const QString& text, const char* name, Kind kind, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    Controls::name(*button, name, QString(text).remove(QLatin1Char('&')));
    if (kind == Kind::primary) button->setProperty("role", QStringLiteral("primary"));
    if (kind == Kind::link) button->setProperty("role", QStringLiteral("link"));
    button->setAutoDefault(false);
    return button;
}

QToolButton* iconButton(const QString& icon, const QString& tip, const char* name, QWidget* parent,
                        QColor Colors::* ink) {
    auto* button = new QToolButton(parent);
    button->setIcon(Icons::icon(icon, ink));
    button->setIconSize(QSize(18, 18));
    button->setToolTip(tip);
    Controls::name(*button, name, tip);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QString wrapped(const QString& text, const QLabel& label, int width) {
    label.ensurePolished();
    const QFontMetrics metrics(label.font());
    QString result, line;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (!line.isEmpty() && metrics.horizontalAdvance(longer) > width) {
            result += line + QLatin1Char('\n');
            line = word;
        } else {
            line = longer;
        }
    }
    return result + line;
}

void restyle(QWidget& widget, const char* property, const QVariant& value) {
    if (widget.property(property) == value) return;
    widget.setProperty(property, value);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

void markProblem(QWidget& field, const QString& sentence) {
    field.setToolTip(sentence);
    field.setAccessibleDescription(sentence);
    restyle(field, "problem", !sentence.isEmpty());
}

}  // namespace tamba::Controls
