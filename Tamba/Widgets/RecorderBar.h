#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tamba {

/// A small window beside the one that is filmed, and no part of the film: how long it is, a caption to be typed, and
/// the two ways to end.
class RecorderBar : public QWidget {
    Q_OBJECT

public:
    explicit RecorderBar(QWidget* window);
    void setSeconds(int seconds);
    /// Nothing is filmed any more and the file is being completed.
    void setFinishing();

signals:
    void captionChanged(const QString& caption);
    void stopped();
    void cancelled();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel* time_;
    QLineEdit* caption_;
};

}  // namespace tamba
