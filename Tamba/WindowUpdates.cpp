#include "CorvexKit/UpdateService.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Window.h"

#include <QApplication>

#include <utility>

namespace tamba {

void Window::setUpdates(UpdateService& updates) {
    updates_ = &updates;
    connect(&updates, &UpdateService::changed, this, &Window::tellOfUpdates);
    fetchingUpdate_ = true;  // what went wrong when the program quit
    tellOfUpdates();
    updates.setAllowed(Remembered::looksForUpdates());
}

void Window::tellOfUpdates() {
    using Stage = UpdateStatus::Stage;
    const UpdateStatus& status = updates_->status();
    const bool fetching = std::exchange(fetchingUpdate_, status.stage == Stage::downloading);
    // A look that came to nothing is no news; who wants to know finds it in the settings.
    const bool news = status.stage == Stage::offered || status.stage == Stage::managed ||
                      status.stage == Stage::ready || (status.stage == Stage::failed && fetching);
    if (!news || toldOfUpdate_ == status.sentence) return;
    toldOfUpdate_ = status.sentence;
    const QString sentence = Translations::shown(toStd(status.sentence));
    // Who has the settings open reads it there.
    if (QApplication::activeModalWidget()) return;
    if (model_.state() != AppModel::State::open) return toast_->show(sentence);
    toast_->show(sentence, status.stage == Stage::offered ? tr("What’s New") : tr("Show"),
                 [this] { editSettings(SettingsPlace::updates); });
}

}  // namespace tamba
