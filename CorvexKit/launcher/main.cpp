#include "CorvexKit/UpdateInstallation.h"

#include <algorithm>

/// What people start: carries the name of the program it starts, and lies beside its versions.
int main(int argc, char** argv) {
    std::error_code error;
    const auto self = std::filesystem::canonical("/proc/self/exe", error);
    tamba::UpdateDisk disk;
    return tamba::UpdateInstallation(self.parent_path(), self.filename().native())
        .launch({argv + std::min(argc, 1), argv + argc}, disk);
}
