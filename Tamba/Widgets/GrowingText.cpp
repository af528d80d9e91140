#include "Tamba/Widgets/GrowingText.h"

#include <QScrollBar>

#include <algorithm>

namespace tamba {

GrowingText::GrowingText(int lines, QWidget* parent) : QPlainTextEdit(parent), lines_(lines) {
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    document()->setDocumentMargin(3);
    setModified(false);  // the margin counts as a change
    connect(this, &QPlainTextEdit::textChanged, this, &GrowingText::grow);
    grow();
}

void GrowingText::put(const QString& text) {
    if (isModified()) return;
    if (toPlainText() != text) setPlainText(text);
    setModified(false);
}

void GrowingText::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    emit left();
}

void GrowingText::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    grow();
}

void GrowingText::grow() {
    // The size of a plain text's layout counts lines, wrapped ones included.
    const int count = std::max(lines_, static_cast<int>(document()->size().height()));
    const QMargins around = contentsMargins();
    const int height = count * fontMetrics().lineSpacing() + 8 + around.top() + around.bottom();
    if (height != minimumHeight() || height != maximumHeight()) setFixedHeight(height);
    verticalScrollBar()->setValue(0);
}

}  // namespace tamba
