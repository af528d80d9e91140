#pragma once

#include <QColor>
#include <QWidget>

#include <cstdint>
#include <vector>

namespace tamba {

/// Bars across the page under each other, each with its name and figure: categories by what was spent, ages by what is
/// owed. The longest fills the room; what is below zero is drawn hollow. Chosen with a click, or arrow keys and Enter.
class ShareBars : public QWidget {
    Q_OBJECT

public:
    struct Bar {
        QString label, figure;
        QColor color;
        std::int64_t amount = 0;
    };
    explicit ShareBars(QWidget* parent = nullptr);
    void set(std::vector<Bar> bars);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {260, sizeHint().height()}; }

signals:
    void chosen(int bar);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    static constexpr int rowHeight = 30;
    [[nodiscard]] int barAt(int y) const;
    void select(int bar);

    std::vector<Bar> bars_;
    int hovered_ = -1, selected_ = -1;
};

}  // namespace tamba
