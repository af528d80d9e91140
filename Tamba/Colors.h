#pragma once

#include <QColor>
#include <QPalette>

namespace tamba {

/// The colours of the light and the dark palette. All follow from two things a `QPalette` carries, whether its window
/// is dark and its highlight, so that any widget can ask `Colors::current()`.
struct Colors {
    bool dark = false;
    QColor window, sidebar, surface, hover, border, strongBorder;
    QColor text, muted, faint;
    QColor accent, onAccent, accentTint, focus;
    QColor warning, warningTint, danger, dangerTint, success, successTint, neutralTint;

    /// `accent` is the business's colour; in the dark palette it is lightened until it can be read.
    [[nodiscard]] static Colors make(bool dark, const QColor& accent);
    [[nodiscard]] static Colors of(const QPalette& palette);
    /// Those of the application's palette: a widget's own is altered by style sheets.
    [[nodiscard]] static Colors current();
    [[nodiscard]] QPalette palette() const;
    /// A colour of the books' own (a category's) as it can be read on every ground: darker or lighter until its
    /// contrast reaches 4.5.
    [[nodiscard]] QColor readable(const QColor& color) const;
};

/// `part` (0–1) of `over` on `under`.
[[nodiscard]] QColor mixed(const QColor& under, const QColor& over, float part);
/// Contrast ratio as WCAG 2 defines it, 1 to 21.
[[nodiscard]] float contrast(const QColor& a, const QColor& b);

}  // namespace tamba
