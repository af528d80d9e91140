#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tamba {

/// What an empty place shows: a glyph, one sentence, one button, and at most two quieter ways on.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    explicit EmptyState(QWidget* parent = nullptr);
    void set(const QString& icon, const QString& title, const QString& sentence, const QString& action,
             const QString& other, const QString& third = {});

signals:
    void actionChosen();
    void otherChosen();
    void thirdChosen();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Glyph;
    void fit();

    Glyph* glyph_;
    QLabel* title_;
    QLabel* sentence_;
    QPushButton* action_;
    QPushButton* other_;
    QPushButton* third_;
};

}  // namespace tamba
