#pragma once

#include <QWidget>

class QListWidget;

namespace tamba {

class GuidePage;

/// The user's guide in a window of its own, so that it can be read beside the work: its pages, and the one that is
/// read.
class GuideWindow : public QWidget {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* owner);
    /// Comes to the front with this page of the guide, such as "bank.md".
    void open(const QString& page);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void readContents();

    QListWidget* contents_;
    GuidePage* page_;
};

}  // namespace tamba
