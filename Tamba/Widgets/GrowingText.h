#pragma once

#include <QPlainTextEdit>

namespace tamba {

/// A text of several lines that is as tall as its words. It is one change when the field is left, not one for each
/// letter.
class GrowingText : public QPlainTextEdit {
    Q_OBJECT

public:
    /// At least `lines` tall.
    explicit GrowingText(int lines, QWidget* parent = nullptr);

    /// Text of the books; what somebody is typing right now is left alone.
    void put(const QString& text);
    [[nodiscard]] bool isModified() const { return document()->isModified(); }
    void setModified(bool modified) { document()->setModified(modified); }

signals:
    void left();

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void grow();
    int lines_;
};

}  // namespace tamba
