#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/QtText.h"
#include "Tamba/Window.h"

#include <QTemporaryDir>
#include <QtTest>

namespace tamba {

/// Answers in the place of a person and remembers what was asked.
struct TestPrompts : Prompts {
    QStringList alerts, held;
    bool again = false;
    bool confirmed = true;
    std::optional<std::string> chosenBackup;
    std::optional<MileageTrip> trip;

    void alert(const QString& sentence) override { alerts << sentence; }
    bool confirm(const QString&, const QString&, const QString&) override { return confirmed; }
    bool addAgain(const QStringList& files) override {
        held << files;
        return again;
    }
    std::vector<std::filesystem::path> receiptFiles() override { return {}; }
    std::optional<std::filesystem::path> libraryFolder(const std::filesystem::path&) override { return {}; }
    std::optional<std::string> backup(const std::vector<LibrarySession::Backup>& backups) override {
        if (backups.empty()) return {};
        return chosenBackup ? chosenBackup : std::optional(backups.front().name);
    }
    std::optional<MileageTrip> mileage(const Library&, Day) override { return trip; }
    std::optional<Business> settings(const Business&) override { return {}; }
    std::optional<std::string> newName(const QString&) override { return {}; }
};

inline constexpr Day testDay{2026, 11, 21};

/// Books in a folder of their own, on a fixed day.
struct OpenBooks {
    QTemporaryDir folder;
    AppModel model{[] { return testDay; }};

    OpenBooks() { model.open(path()); }
    [[nodiscard]] std::filesystem::path path() const { return toPath(folder.path()); }
    [[nodiscard]] Library onDisk() const { return LibraryStore(path()).load().value_or(Library()); }
    bool rename(const std::string& name) {
        return model.perform(QStringLiteral("Rename"), [name](Library library, Day) {
            library.business.name = name;
            return library;
        });
    }
};

/// One test class after another, in one process. Each registers itself.
void addTestClass(std::function<QObject*()> make);
template <class T>
struct TestClass {
    TestClass() {
        addTestClass([] { return new T; });
    }
};

}  // namespace tamba
