#pragma once

#include "Tamba/AppModel.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <vector>

namespace tamba {

class Instance;
class Window;

/// What stands on the command line: a folder of books and files to add to them.
struct StartArguments {
    std::optional<std::filesystem::path> folder;
    std::vector<std::filesystem::path> files;

    /// A file of books (tamba.json) means its folder, any other file is to be added; what is not there yet is a folder.
    [[nodiscard]] static StartArguments of(const QStringList& arguments);
};

/// The way from the start of the program to open books: which folder, whether it still holds what it held, and the
/// first steps in a new one. Remembers where books have been, and answers for them when the program is started again.
class StartUp : public QObject {
    Q_OBJECT

public:
    /// `named`: on the command line, else in the environment; nothing opens the books of the last time.
    StartUp(AppModel& model, Window& window, std::optional<std::filesystem::path> named, QObject* parent = nullptr);
    /// The folder that is opened first. `named` as above.
    [[nodiscard]] static std::filesystem::path folder(const std::optional<std::filesystem::path>& named);
    void begin();

private:
    void remember();

    AppModel& model_;
    Window& window_;
    const std::optional<std::filesystem::path> named_;
    Instance* instance_;
};

}  // namespace tamba
