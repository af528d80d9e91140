#pragma once

#include "Tamba/PictureLoader.h"

#include <QFrame>
#include <QString>

#include <filesystem>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QToolButton;

namespace tamba {

/// A page of an attachment, fitted into the view; arrows turn pages, a click asks for the large view.
class ReceiptView : public QFrame {
    Q_OBJECT

public:
    explicit ReceiptView(QWidget* parent = nullptr);
    /// Nothing: no attachment to show.
    void show(const std::optional<std::filesystem::path>& file, const QString& name);
    [[nodiscard]] bool isLoaded() const { return loaded_ || !file_; }
    /// Fits the width only and grows as long as the page is, for the large view.
    void setFullWidth(int width);

signals:
    void clicked();
    void loaded();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ask();
    void turn(int pages);
    void take(const ReceiptPicture& picture);
    [[nodiscard]] QRectF pageBox() const;

    PictureLoader loader_;
    int request_ = 0;
    std::optional<std::filesystem::path> file_;
    ReceiptPicture picture_;
    bool loaded_ = false;
    int page_ = 0;
    int fullWidth_ = 0;
    QToolButton* earlier_;
    QToolButton* later_;
    QLabel* pages_;
    QPlainTextEdit* text_;
};

/// The large view over the window: the page at reading size, scrolled and enlarged. Escape or a click closes it.
void showLarge(QWidget* parent, const std::filesystem::path& file, const QString& name);

}  // namespace tamba
