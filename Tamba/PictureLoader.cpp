#include "Tamba/PictureLoader.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"
#include "TambaCore/Receipts/ReceiptReader.h"

namespace tamba {
namespace {

QImage imageOf(const Raster& raster) {
    if (raster.width <= 0 || raster.height <= 0) return {};
    const bool grey = raster.kind == Raster::Kind::grey;
    const QImage view(raster.pixels.data(), raster.width, raster.height, raster.width * (grey ? 1 : 4),
                      grey ? QImage::Format_Grayscale8 : QImage::Format_RGBA8888);
    return view.copy();  // the pixels belong to the raster
}

ReceiptPicture picture(const std::filesystem::path& file, int page, int width) {
    ReceiptPicture result;
    try {
        const std::string extension = Text::lower(file.extension().string());
        if (extension == ".eml" || extension == ".emlx") {
            const auto message = EmailReceipt::parse(Files::read(file));
            result.text = toQt(message.subject) + QStringLiteral("\n") + toQt(message.from) + QStringLiteral("\n\n") +
                          toQt(Text::trim(message.bodyText));
        } else {
            result.pages = ReceiptReader::pageCount(file);
            result.image = imageOf(ReceiptReader::picture(file, page, width));
        }
    } catch (const std::exception& error) {
        result.problem = toQt(std::string_view(error.what()));
    }
    return result;
}

}  // namespace

PictureLoader::PictureLoader(QObject* parent) : QObject(parent), worker_(new QObject) {
    worker_->moveToThread(&thread_);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    thread_.setObjectName(QStringLiteral("pictures"));
    thread_.start();
}

PictureLoader::~PictureLoader() {
    ++latest_;
    thread_.quit();
    thread_.wait();
}

int PictureLoader::request(const std::filesystem::path& file, int page, int width) {
    const int number = ++latest_;
    const auto work = [this, file, page, width, number] {
        if (number != latest_) return;
        auto loadedPicture = picture(file, page, width);
        QMetaObject::invokeMethod(
            this, [this, number, loadedPicture = std::move(loadedPicture)] { emit loaded(number, loadedPicture); },
            Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(worker_, work, Qt::QueuedConnection);
    return number;
}

}  // namespace tamba
