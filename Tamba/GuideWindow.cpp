#include "Tamba/GuideWindow.h"

#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QRegularExpression>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>

namespace tamba {
namespace {

constexpr int margin = 28;

QUrl address(const QString& page) { return QUrl(QStringLiteral("qrc:/guide/") + page); }

}  // namespace

/// A page of the guide, with its pictures as wide as there is room for.
class GuidePage : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
        QImage picture(QLatin1Char(':') + source().resolved(name).path());
        // As wide as the text of a step, so that all are.
        const int room = viewport()->width() - 2 * margin - qRound(document()->indentWidth());
        if (picture.isNull() || picture.width() <= room || room <= 0) return picture;
        const qreal ratio = devicePixelRatioF();
        picture = picture.scaledToWidth(std::min(picture.width(), qRound(room * ratio)), Qt::SmoothTransformation);
        picture.setDevicePixelRatio(picture.width() / static_cast<qreal>(room));
        return picture;
    }

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override {
        QTextBrowser::doSetSource(name, type);
        setType();
    }

    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (event->size().width() == event->oldSize().width() || source().isEmpty()) return;
        const QScrollBar& bar = *verticalScrollBar();
        const double at = bar.maximum() > 0 ? static_cast<double>(bar.value()) / bar.maximum() : 0;
        reload();
        verticalScrollBar()->setValue(qRound(at * bar.maximum()));
    }

private:
    /// Gives what is read room to breathe, and titles the face they have in the program.
    void setType() {
        QTextCursor cursor(document());
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            cursor.setPosition(block.position());
            QTextBlockFormat format = block.blockFormat();
            const int level = format.headingLevel();
            const bool picture = block.text().contains(QChar::ObjectReplacementCharacter);
            format.setLineHeight(level > 0 || picture ? 100 : 125, QTextBlockFormat::ProportionalHeight);
            format.setTopMargin(level > 1 ? 14 : 0);
            format.setBottomMargin(level > 0 ? 10 : block.textList() ? 6 : 12);
            // In a table the cells have room of their own.
            if (!cursor.currentTable()) cursor.setBlockFormat(format);
            if (level == 0) continue;
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat title;
            title.setFont(Style::titleFont(level == 1 ? 22 : 16));
            cursor.mergeCharFormat(title);
        }
    }
};

GuideWindow::GuideWindow(QWidget* owner) : QWidget(owner, Qt::Window) {
    setObjectName(QStringLiteral("guide"));
    setWindowTitle(tr("Guide"));
    resize(1000, 760);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(16, 16, 16, 16);
    columns->setSpacing(16);
    contents_ = new QListWidget(this);
    Controls::name(*contents_, "guideContents", tr("Pages"));
    contents_->setFixedWidth(224);
    contents_->setTextElideMode(Qt::ElideNone);
    contents_->setWordWrap(true);
    page_ = new GuidePage(this);
    Controls::name(*page_, "guidePage", tr("Guide"));
    page_->setFont(Style::textFont(14));
    page_->document()->setDocumentMargin(margin);
    page_->setOpenExternalLinks(true);
    page_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    columns->addWidget(contents_);
    columns->addWidget(page_, 1);
    readContents();
    connect(contents_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) page_->setSource(item->data(Qt::UserRole).toUrl());
    });
    connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        const QSignalBlocker quiet(contents_);
        for (int row = 0; row < contents_->count(); ++row)
            if (contents_->item(row)->data(Qt::UserRole).toUrl() == source.adjusted(QUrl::RemoveFragment))
                contents_->setCurrentRow(row);
    });
}

void GuideWindow::open(const QString& page) {
    page_->setSource(address(page));
    show();
    raise();
    activateWindow();
    contents_->setFocus();
}

void GuideWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

void GuideWindow::readContents() {
    const QString first = QStringLiteral("README.md");
    const auto add = [this](const QString& title, const QString& page) {
        auto* item = new QListWidgetItem(title, contents_);
        item->setData(Qt::UserRole, address(page));
    };
    add(tr("Contents"), first);
    QFile file(QStringLiteral(":/guide/") + first);
    (void)file.open(QIODevice::ReadOnly);
    static const QRegularExpression entry(QStringLiteral(R"(^\d+\. \[(.+)\]\((.+\.md)\)$)"),
                                          QRegularExpression::MultilineOption);
    for (auto found = entry.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        add(match.captured(1), match.captured(2));
    }
}

}  // namespace tamba
