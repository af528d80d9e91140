#include "Tamba/Colors.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace tamba {
namespace {

float luminance(const QColor& color) {
    const auto part = [](float value) {
        return value <= 0.03928F ? value / 12.92F : std::pow((value + 0.055F) / 1.055F, 2.4F);
    };
    return 0.2126F * part(color.redF()) + 0.7152F * part(color.greenF()) + 0.0722F * part(color.blueF());
}

}  // namespace

QColor mixed(const QColor& under, const QColor& over, float part) {
    return QColor::fromRgbF(under.redF() + (over.redF() - under.redF()) * part,
                            under.greenF() + (over.greenF() - under.greenF()) * part,
                            under.blueF() + (over.blueF() - under.blueF()) * part);
}

float contrast(const QColor& a, const QColor& b) {
    const float one = luminance(a), other = luminance(b);
    return (std::max(one, other) + 0.05F) / (std::min(one, other) + 0.05F);
}

QColor Colors::readable(const QColor& color) const {
    const QColor target = dark ? QColor(Qt::white) : QColor(Qt::black);
    QColor result = color;
    const auto isReadable = [&] {
        for (const QColor& ground : {surface, window, sidebar, hover})
            if (contrast(result, ground) < 4.5F) return false;
        return true;
    };
    for (int i = 0; i < 30 && !isReadable(); ++i) result = mixed(result, target, 0.08F);
    return result;
}

Colors Colors::make(bool dark, const QColor& accent) {
    Colors c;
    c.dark = dark;
    if (dark) {
        c.window = QColor(0x1B1A18);
        c.sidebar = QColor(0x211F1D);
        c.surface = QColor(0x262421);
        c.hover = QColor(0x2E2B28);
        c.border = QColor(0x3A3733);
        c.strongBorder = QColor(0x514C46);
        c.text = QColor(0xECE8E2);
        c.muted = QColor(0xADA69B);
        c.faint = QColor(0x9A9388);
        c.warning = QColor(0xF0B95B);
        c.danger = QColor(0xF2917F);
        c.success = QColor(0x7FC79B);
    } else {
        c.window = QColor(0xF7F5F2);
        c.sidebar = QColor(0xEFECE7);
        c.surface = QColor(0xFFFFFF);
        c.hover = QColor(0xF8F6F3);
        c.border = QColor(0xE4E0D9);
        c.strongBorder = QColor(0xCDC7BD);
        c.text = QColor(0x1F1D1A);
        c.muted = QColor(0x69645B);
        c.faint = QColor(0x746E64);
        c.warning = QColor(0x8A5600);
        c.danger = QColor(0xA8321F);
        c.success = QColor(0x23663F);
    }
    c.accent = c.readable(accent);
    // What is written on the tint is readable, too: a strong accent gives a weak tint.
    float part = dark ? 0.18F : 0.10F;
    const auto tinted = [&] { return c.accentTint = mixed(c.surface, c.accent, part); };
    while (contrast(c.accent, tinted()) < 4.5F) c.accent = mixed(c.accent, dark ? Qt::white : Qt::black, 0.05F);
    while (contrast(c.muted, tinted()) < 4.5F || contrast(c.danger, c.accentTint) < 4.5F) part -= 0.01F;
    c.onAccent = contrast(c.accent, Qt::white) >= 4.5F ? QColor(Qt::white) : QColor(0x1B1A18);
    c.focus = mixed(c.surface, c.accent, 0.55F);
    const float tint = dark ? 0.16F : 0.12F;
    c.warningTint = mixed(c.surface, dark ? c.warning : QColor(0xE2A021), dark ? tint : 0.18F);
    c.dangerTint = mixed(c.surface, c.danger, tint);
    c.successTint = mixed(c.surface, c.success, tint);
    c.neutralTint = mixed(c.surface, c.text, dark ? 0.11F : 0.07F);
    return c;
}

Colors Colors::of(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
    return make(dark, palette.color(QPalette::Active, QPalette::Highlight));
}

Colors Colors::current() { return of(QGuiApplication::palette()); }

QPalette Colors::palette() const {
    QPalette p;
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, surface);
    p.setColor(QPalette::AlternateBase, hover);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::PlaceholderText, faint);
    p.setColor(QPalette::Button, surface);
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, danger);
    p.setColor(QPalette::Highlight, accent);
    p.setColor(QPalette::HighlightedText, onAccent);
    p.setColor(QPalette::Link, accent);
    p.setColor(QPalette::LinkVisited, accent);
    p.setColor(QPalette::ToolTipBase, dark ? hover : text);
    p.setColor(QPalette::ToolTipText, dark ? text : surface);
    p.setColor(QPalette::Light, surface);
    p.setColor(QPalette::Midlight, hover);
    p.setColor(QPalette::Mid, border);
    p.setColor(QPalette::Dark, strongBorder);
    p.setColor(QPalette::Shadow, QColor(0, 0, 0, dark ? 120 : 50));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, faint);
    return p;
}

}  // namespace tamba
