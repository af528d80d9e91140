#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <filesystem>

namespace tamba {

/// What there is to see of an attachment: a picture of one page, or the text of a saved e-mail.
struct ReceiptPicture {
    QImage image;
    QString text;
    QString problem;  ///< why there is neither
    int pages = 1;
};

/// Renders attachments off the main thread. Of requests that come faster than pages are rendered only the latest is.
class PictureLoader : public QObject {
    Q_OBJECT

public:
    explicit PictureLoader(QObject* parent = nullptr);
    ~PictureLoader() override;

    /// Asks for a page, at most `width` pixels wide; `loaded` brings it, with the number returned here.
    int request(const std::filesystem::path& file, int page, int width);

signals:
    void loaded(int request, const tamba::ReceiptPicture& picture);

private:
    QThread thread_;
    QObject* worker_;  // lives on `thread_`
    std::atomic<int> latest_ = 0;
};

}  // namespace tamba
