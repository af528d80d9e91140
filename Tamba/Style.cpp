#include "Tamba/Style.h"

#include <QApplication>
#include <QFile>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleHints>

// A resource file inside a static library is only linked in when something asks for it, from outside any namespace.
static void linkResources() { Q_INIT_RESOURCE(resources); }

namespace tamba::Style {
namespace {

class Base : public QProxyStyle {
public:
    Base() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        switch (hint) {
            case SH_ItemView_ShowDecorationSelected:
                return 1;
            case SH_ComboBox_Popup:
                return 0;
            case SH_DialogButtonLayout:
                return 3;  // the desktop's order with the main button last
            case SH_ToolTip_WakeUpDelay:
                return 500;
            default:
                return QProxyStyle::styleHint(hint, option, widget, more);
        }
    }
};

QString sheet() {
    QFile file(QStringLiteral(":/style.qss"));
    (void)file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

}  // namespace

QFont titleFont(int pixels, QFont::Weight weight) {
    QFont font;
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Sans")});
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QFont textFont(int pixels, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

bool desktopIsDark() {
    // Before any palette of our own: what the desktop's settings gave.
    static const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return dark;
}

void install(QApplication& application) {
    linkResources();
    (void)desktopIsDark();
    QApplication::setStyle(new Base);
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans"), font.family()});
    font.setPixelSize(13);
    application.setFont(font);
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/tamba.svg")));
}

void apply(QApplication& application, const Colors& colors) {
    QApplication::setPalette(colors.palette());
    QString text = sheet();
    // A button under the mouse moves away from the colour of its words.
    const QColor away = colors.onAccent == QColor(Qt::white) ? Qt::black : Qt::white;
    const std::pair<const char*, QColor> names[] = {
        {"@window", colors.window},
        {"@sidebar", colors.sidebar},
        {"@surface", colors.surface},
        {"@hover", colors.hover},
        {"@strongBorder", colors.strongBorder},
        {"@border", colors.border},
        {"@text", colors.text},
        {"@muted", colors.muted},
        {"@faint", colors.faint},
        {"@accentTint", colors.accentTint},
        {"@accentHover", mixed(colors.accent, away, 0.12F)},
        {"@accentDown", mixed(colors.accent, away, 0.25F)},
        {"@accent", colors.accent},
        {"@onAccent", colors.onAccent},
        {"@focus", colors.focus},
        {"@warningTint", colors.warningTint},
        {"@warning", colors.warning},
        {"@dangerTint", colors.dangerTint},
        {"@danger", colors.danger},
        {"@successTint", colors.successTint},
        {"@success", colors.success},
        {"@neutralTint", colors.neutralTint},
    };
    for (const auto& [name, color] : names) text.replace(QLatin1String(name), color.name());
    text.replace(QLatin1String("@tick"),
                 colors.onAccent == QColor(Qt::white) ? QStringLiteral("tick-light") : QStringLiteral("tick-dark"));
    application.setStyleSheet(text);
}

}  // namespace tamba::Style
