#include "Tamba/DocumentDrag.h"

#include "Tamba/DocumentPDF.h"
#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Books.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace tamba {

DocumentDrag::DocumentDrag(AppModel& model, QWidget& from, std::function<std::optional<UUID>()> document,
                           QObject* parent)
    : QObject(parent),
      model_(model),
      from_(from),
      document_(std::move(document)),
      folder_(std::make_unique<QTemporaryDir>()) {
    from_.installEventFilter(this);
}

std::optional<std::filesystem::path> DocumentDrag::file() const {
    const auto id = document_();
    const Document* document = id ? model_.library().document(*id) : nullptr;
    if (!document || !document->number || !folder_->isValid()) return {};
    std::filesystem::path file = toPath(folder_->path()) / Books::fileName(model_.library(), *document);
    const bool made = model_.attempt(
        [&] { Files::writeAtomically(file, DocumentPDF::make(model_.library(), *document, model_.store())); });
    return made ? std::optional(file) : std::nullopt;
}

bool DocumentDrag::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        pressed_ = mouse->button() == Qt::LeftButton ? std::optional(mouse->pos()) : std::nullopt;
    } else if (event->type() == QEvent::MouseButtonRelease) {
        pressed_.reset();
    } else if (event->type() == QEvent::MouseMove && pressed_) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if ((mouse->pos() - *pressed_).manhattanLength() < QApplication::startDragDistance()) return true;
        pressed_.reset();
        drag();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void DocumentDrag::drag() {
    const auto pdf = file();
    if (!pdf) return;
    auto* drag = new QDrag(&from_);
    auto* data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(toQt(*pdf))});
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
}

}  // namespace tamba
