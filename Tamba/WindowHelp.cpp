#include "CorvexKit/LiveRecorder.h"
#include "Tamba/GuideWindow.h"
#include "Tamba/QtText.h"
#include "Tamba/Sheets/AboutSheet.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Widgets/RecorderBar.h"
#include "Tamba/Window.h"

#include <QDesktopServices>
#include <QMenuBar>
#include <QUrl>

#include <array>

namespace tamba {

void Window::makeHelpMenu() {
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    QAction* guide = help->addAction(tr("&Guide"), this, &Window::showGuide);
    guide->setShortcut(QKeySequence::HelpContents);
    help->addSeparator();
    record_ = help->addAction(tr("&Record a Demonstration…"), this, &Window::recordDemonstration);
    record_->setObjectName(QStringLiteral("recordDemonstration"));
    help->addSeparator();
    help->addAction(tr("&About Tamba"), this, [this] {
        auto* about = new AboutSheet(this, model_.folder());
        about->setAttribute(Qt::WA_DeleteOnClose);
        about->open();
    });
}

void Window::showGuide() {
    static constexpr std::array<const char*, std::size(allScreens)> about{"README.md",  "bill.md", "invoice.md",
                                                                          "invoice.md", "bank.md", "gst.md"};
    if (!guide_) guide_ = new GuideWindow(this);
    const bool begins = welcome_ && model_.isNew();
    guide_->open(QLatin1String(begins ? "first-day.md" : about[static_cast<std::size_t>(screen_)]));
}

void Window::recordDemonstration() {
    const auto file = prompts_->saveFile(tr("Record a Demonstration"), "tamba.mp4");
    if (!file) return;
    LiveRecorder* recorder = nullptr;
    try {
        recorder = new LiveRecorder(*this, *file, this);
    } catch (const DemoError& error) {
        return prompts_->alert(Translations::shown(toStd(error.sentence())));
    }
    record_->setEnabled(false);
    auto* bar = new RecorderBar(this);
    const auto over = [this, bar, recorder] {
        bar->deleteLater();
        recorder->deleteLater();
        record_->setEnabled(true);
    };
    connect(recorder, &LiveRecorder::progressed, bar, &RecorderBar::setSeconds);
    connect(bar, &RecorderBar::captionChanged, recorder, &LiveRecorder::setCaption);
    connect(bar, &RecorderBar::stopped, recorder, [bar, recorder] {
        bar->setFinishing();
        recorder->stop();
    });
    connect(bar, &RecorderBar::cancelled, this, [this, over] {
        over();
        toast_->show(tr("Cancelled"));
    });
    connect(recorder, &LiveRecorder::finished, this, [this, over, recorder, file] {
        over();
        const QString name = toQt(file->filename());
        toast_->show(tr("“%1” is made. Its longest pause between two pictures was %2 ms.")
                         .arg(name)
                         .arg(recorder->longestGapMilliseconds()),
                     tr("Show"), [file] { QDesktopServices::openUrl(QUrl::fromLocalFile(toQt(*file))); });
    });
    connect(recorder, &LiveRecorder::failed, this, [this, over](const DemoError& error) {
        over();
        prompts_->alert(Translations::shown(toStd(error.sentence())));
    });
    bar->adjustSize();
    bar->move(mapToGlobal(QPoint((width() - bar->width()) / 2, height() - bar->height() - 48)));
    bar->show();
}

}  // namespace tamba
