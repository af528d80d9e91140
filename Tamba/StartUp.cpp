#include "Tamba/StartUp.h"

#include "Tamba/FolderActions.h"
#include "Tamba/FolderWatch.h"
#include "Tamba/Instance.h"
#include "Tamba/QtText.h"
#include "Tamba/Remembered.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/Window.h"

#include <QFileInfo>

namespace tamba {

StartArguments StartArguments::of(const QStringList& arguments) {
    StartArguments result;
    for (const QString& argument : arguments) {
        const QFileInfo info(argument);
        if (!info.isFile())
            result.folder = toPath(info.absoluteFilePath());
        else if (info.fileName() == QStringLiteral("tamba.json"))
            result.folder = toPath(info.absolutePath());
        else
            result.files.push_back(toPath(info.absoluteFilePath()));
    }
    return result;
}

StartUp::StartUp(AppModel& model, Window& window, std::optional<std::filesystem::path> named, QObject* parent)
    : QObject(parent), model_(model), window_(window), named_(std::move(named)) {
    auto* welcome = new WelcomeScreen(model_, window_.prompts());
    connect(welcome, &WelcomeScreen::sampleChosen, &window_, &Window::openSample);
    connect(welcome, &WelcomeScreen::finished, &window_, [&window](bool firstInvoice) {
        if (firstInvoice) window.newInvoice();
    });
    window_.setWelcome(welcome);
    connect(&model_, &AppModel::opened, this, &StartUp::remember);
    connect(&model_, &AppModel::savingChanged, this, &StartUp::remember);
    new FolderWatch(model_, this);
    instance_ = new Instance(this);
    connect(&model_, &AppModel::opened, this, [this] {
        if (model_.state() == AppModel::State::open) return instance_->answerFor(model_.folder());
        instance_->fallSilent();
    });
    connect(instance_, &Instance::startedAgain, &window_, &Window::comeForward);
    connect(instance_, &Instance::startedAgain, &window_, &Window::addFiles);
}

std::filesystem::path StartUp::folder(const std::optional<std::filesystem::path>& named) {
    return named ? *named : Remembered::folder().value_or(LibraryStore::defaultFolder());
}

void StartUp::begin() {
    const auto first = folder(named_);
    model_.open(first, FolderActions::expected(first));
}

void StartUp::remember() {
    if (model_.state() != AppModel::State::open || model_.isNew() || model_.saving() != AppModel::Saving::saved) return;
    Remembered::setHeldBooks(model_.folder());
    // Books that were named for this once are not those to begin with the next time.
    if (window_.ownFolder() != named_) Remembered::setFolder(window_.ownFolder());
}

}  // namespace tamba
