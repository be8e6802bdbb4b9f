// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/CatalogueFolder.h"

#include <functional>
#include <sys/stat.h>

namespace vorhaven::test {
namespace {

TEST_F(CatalogueFolder, OfPipesDevicesAndLinksThatLeadNowhereIsRefused) {
    const std::string file = ExpectedFile, folder = ExpectedFolder;
    const auto replaceByLink = [](const Path& path, const Path& target) {
        std::filesystem::remove_all(path);
        std::filesystem::create_symlink(target, path);
    };
    // clang-format off
    const struct {
        std::function<void()> spoil;
        std::string fault;
    } cases[] = {
        {[&] { std::filesystem::remove(armies_); mkfifo(armies_.c_str(), 0666); },
            "armies.csv: found a pipe or a device" + file},
        {[&] { replaceByLink(armies_, "/dev/zero"); }, "armies.csv: found a pipe or a device" + file},
        {[&] { replaceByLink(armies_, "nowhere"); },
            "armies.csv: found a symbolic link that leads nowhere" + file},
        {[&] { replaceByLink(armies_, armies_); }, "armies.csv: found no way to read it" + file},
        {[&] { replaceByLink(folder_, "nowhere"); }, "Found a symbolic link that leads nowhere" + folder},
        {[&] { replaceByLink(folder_, folder_); }, "Found no way to read it" + folder},
    };
    // clang-format on
    for (const auto& test : cases) {
        Restore();
        test.spoil();
        ExpectRefusal(test.fault);
    }
}

TEST_F(CatalogueFolder, MayBeALink) {
    std::filesystem::create_directory_symlink(folder_, root_ / "link");
    EXPECT_EQ(FirstOrErrorOf({root_ / "link"}), OwnFirst);
}

} // namespace
} // namespace vorhaven::test
