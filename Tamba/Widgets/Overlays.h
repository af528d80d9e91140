#pragma once

#include <QFrame>
#include <QTimer>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tamba {

/// The strip at the foot of the window while long work runs: what, how far, Cancel.
class ActivityStrip : public QFrame {
    Q_OBJECT

public:
    explicit ActivityStrip(QWidget* parent = nullptr);
    /// `count` 0: no telling how long.
    void show(const QString& what, int done, int count);
    [[nodiscard]] QString what() const;
    /// Whether what runs can be stopped.
    void setCancellable(bool cancellable);

signals:
    void cancelled();

private:
    QLabel* what_;
    QLabel* figures_;
    QProgressBar* bar_;
    QPushButton* cancel_;
};

/// A passing notice over the foot of the window, with one thing to do about it.
class Toast : public QFrame {
    Q_OBJECT

public:
    explicit Toast(QWidget* parent);
    void show(const QString& text, const QString& action = {}, std::function<void()> work = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
    QLabel* text_;
    QPushButton* action_;
    std::function<void()> work_;
    QTimer timer_{this};
};

/// Lies over the window while files hover and says what will become of them.
class DropOverlay : public QWidget {
    Q_OBJECT

public:
    explicit DropOverlay(QWidget* parent);
    void show(int receipts, int statements = 0);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString words() const;
    int receipts_ = 0;
    int statements_ = 0;
};

}  // namespace tamba
