#include "Tamba/Widgets/DocumentPreview.h"

#include "Tamba/Colors.h"
#include "Tamba/DocumentPDF.h"
#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Pages/InvoicePDF.h"
#include "TambaCore/Pages/PDFPages.h"

#include <QPainter>

namespace tamba {
namespace {

constexpr int edge = 20;     // desk around the pages
constexpr int widest = 794;  // A4 at 96 dots to the inch
constexpr int delay = 150;   // milliseconds after the last change

}  // namespace

DocumentPreview::DocumentPreview(QWidget* parent) : QWidget(parent), worker_(new QObject) {
    Controls::name(*this, "documentPreview", tr("The document as a page"));
    timer_.setSingleShot(true);
    timer_.setInterval(delay);
    connect(&timer_, &QTimer::timeout, this, &DocumentPreview::ask);
    worker_->moveToThread(&thread_);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    thread_.setObjectName(QStringLiteral("pages"));
    thread_.start();
    place();
}

DocumentPreview::~DocumentPreview() {
    ++latest_;
    thread_.quit();
    thread_.wait();
}

void DocumentPreview::setDocument(const Library& library, const LibraryStore& store, const Document& document) {
    const bool other = !source_ || source_->document.id != document.id;
    // What the page shows besides the document: the business, the client, what was paid and credited.
    const bool same = !other && source_->document == document && source_->library.business == library.business &&
                      source_->library.clients.sharesAllWith(library.clients) &&
                      source_->library.documents.sharesAllWith(library.documents);
    if (same) return;
    source_.emplace(library, store, document);
    if (other) {
        pages_.clear();
        problem_.clear();
        place();
        update();
    }
    ++latest_;
    if (isVisible()) timer_.start(other ? 0 : delay);
}

DocumentPreview::Rendered DocumentPreview::render(const Source& source, int pixelWidth) {
    Rendered result;
    try {
        const std::string pdf = DocumentPDF::make(source.library, source.document, source.store);
        for (const Image& page : PDFPages::images(pdf, pixelWidth))
            result.pages.push_back(
                QImage(page.pixels.data(), page.width, page.height, page.width * 4, QImage::Format_RGBA8888)
                    .convertToFormat(QImage::Format_RGB32));
    } catch (const std::exception& error) {
        result.problem = toQt(std::string_view(error.what()));
    }
    return result;
}

void DocumentPreview::ask() {
    if (!source_) return;
    const int request = ++latest_;
    renderedWidth_ = qRound(pageWidth() * devicePixelRatioF());
    const auto work = [this, request, source = *source_, width = renderedWidth_] {
        if (request != latest_) return;
        QMetaObject::invokeMethod(
            this, [this, request, rendered = render(source, width)] { take(request, rendered); }, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(worker_, work, Qt::QueuedConnection);
}

void DocumentPreview::take(int request, const Rendered& rendered) {
    if (request != latest_) return;
    shown_ = request;
    pages_ = rendered.pages;
    problem_ = rendered.problem;
    setAccessibleDescription(problem_);
    place();
    update();
}

int DocumentPreview::pageWidth() const { return std::clamp(width() - 2 * edge, 120, widest); }

int DocumentPreview::pageHeight(const QImage& page) const {
    return page.isNull() ? qRound(pageWidth() * InvoicePDF::pageSize.height / InvoicePDF::pageSize.width)
                         : pageWidth() * page.height() / page.width();
}

void DocumentPreview::place() {
    int height = edge;
    for (const QImage& page : pages_) height += pageHeight(page) + edge;
    if (pages_.empty()) height += pageHeight({}) + edge;
    setFixedHeight(height);
}

void DocumentPreview::resizeEvent(QResizeEvent*) {
    place();
    if (source_ && isVisible() && renderedWidth_ != qRound(pageWidth() * devicePixelRatioF())) timer_.start(delay);
}

void DocumentPreview::showEvent(QShowEvent*) {
    if (source_ && (shown_ != latest_ || renderedWidth_ != qRound(pageWidth() * devicePixelRatioF()))) timer_.start(0);
}

void DocumentPreview::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const int left = (width() - pageWidth()) / 2;
    int top = edge;
    const auto paintPage = [&](const QImage& page) {
        const QRect box(left, top, pageWidth(), pageHeight(page));
        for (int i = 4; i > 0; --i) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(0, 0, 0, colors.dark ? 34 : 10));
            painter.drawRoundedRect(box.adjusted(-i, -i + 2, i, i + 2), i + 1, i + 1);
        }
        if (page.isNull())
            painter.fillRect(box, Qt::white);
        else
            painter.drawImage(box, page);
        top += box.height() + edge;
    };
    if (!problem_.isEmpty()) {
        const QRect box(left, edge, pageWidth(), 160);
        Icons::paint(painter, QRectF(box.center().x() - 14, edge + 40, 28, 28), QStringLiteral("alert"), colors.faint);
        painter.setPen(colors.muted);
        painter.setFont(Style::textFont(13));
        painter.drawText(box.adjusted(20, 80, -20, 0), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, problem_);
        return;
    }
    if (pages_.empty()) return paintPage({});
    for (const QImage& page : pages_) paintPage(page);
}

}  // namespace tamba
