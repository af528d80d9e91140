#pragma once

#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/Models.h"

#include <QImage>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <atomic>
#include <optional>
#include <vector>

namespace tamba {

/// The pages of a document's PDF below each other, as wide as there is room and as tall as they are: for a scroll area.
/// They are rendered off the main thread, from a copy of the books, shortly after the last change.
class DocumentPreview : public QWidget {
    Q_OBJECT

public:
    explicit DocumentPreview(QWidget* parent = nullptr);
    ~DocumentPreview() override;

    void setDocument(const Library& library, const LibraryStore& store, const Document& document);
    /// The pages shown are those of the document last set.
    [[nodiscard]] bool isSettled() const { return !timer_.isActive() && shown_ == latest_; }
    /// Pages are being made off the main thread.
    [[nodiscard]] bool isRendering() const { return !timer_.isActive() && shown_ != latest_; }
    [[nodiscard]] std::size_t pageCount() const { return pages_.size(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Source {
        Library library;
        LibraryStore store;
        Document document;
    };
    struct Rendered {
        std::vector<QImage> pages;
        QString problem;
    };
    [[nodiscard]] static Rendered render(const Source& source, int pixelWidth);
    [[nodiscard]] int pageWidth() const;
    [[nodiscard]] int pageHeight(const QImage& page) const;
    void ask();
    void take(int request, const Rendered& rendered);
    void place();

    std::optional<Source> source_;
    std::vector<QImage> pages_;
    QString problem_;
    QTimer timer_{this};
    int renderedWidth_ = 0;
    int shown_ = 0;
    QThread thread_;
    QObject* worker_;  // lives on `thread_`
    std::atomic<int> latest_ = 0;
};

}  // namespace tamba
