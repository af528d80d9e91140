#pragma once

#include <QDialog>
#include <QString>
#include <QVBoxLayout>

class QPushButton;

namespace tamba {

/// A modal dialog in the product's one style: glyph, title, text, whatever is added to the body, buttons at the foot.
class Sheet : public QDialog {
    Q_OBJECT

public:
    enum class Icon { none, alert, question };
    Sheet(QWidget* parent, Icon icon, const QString& title, const QString& text);

    [[nodiscard]] QVBoxLayout& body() { return *body_; }
    /// What the main button does: `decides` on something that is not done unasked, or `keeps` what was typed.
    enum class Main { decides, keeps };
    /// The main button accepts, the other rejects. Call last.
    QPushButton* addButtons(const QString& main, const QString& other, Main does = Main::decides);
    /// A third way out, at the left of the buttons, which closes with `thirdWay`.
    QPushButton* addThirdButton(const QString& text);
    static constexpr int thirdWay = 2;
    /// Closed by Escape or the window's frame instead of a button.
    [[nodiscard]] bool wasDismissed() const { return dismissed_; }

    void reject() override;
    /// Closes it when nobody can be asked: accepts what the main button would keep, as far as that can be pressed.
    void end();

protected:
    /// As high as what it holds now.
    void fit();
    void showEvent(QShowEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    QVBoxLayout* body_;
    QHBoxLayout* buttons_ = nullptr;
    QPushButton* keep_ = nullptr;
    bool dismissed_ = false;
};

}  // namespace tamba
