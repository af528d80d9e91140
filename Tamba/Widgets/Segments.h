#pragma once

#include <QFrame>

#include <utility>
#include <vector>

class QButtonGroup;

namespace tamba {

/// A choice among a few, side by side.
class Segments : public QFrame {
    Q_OBJECT

public:
    /// Text and object name of each.
    using Choices = std::vector<std::pair<QString, const char*>>;
    explicit Segments(const Choices& choices, QWidget* parent = nullptr);
    [[nodiscard]] int chosenIndex() const;
    /// Without a signal.
    void choose(int index);

signals:
    void chosen(int index);

private:
    QButtonGroup* group_;
};

}  // namespace tamba
