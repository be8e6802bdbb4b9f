// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/CatalogueFolder.h"

#include <cstdint>
#include <functional>

namespace vorhaven::test {
namespace {

TEST_F(CatalogueFolder, WithAFaultIsRefusedAndNotPassedOver) {
    const std::string file = ExpectedFile, folder = ExpectedFolder;
    // clang-format off
    const struct {
        std::function<void()> Spoil;
        std::string Fault;
    } cases[] = {
        {[&] { std::filesystem::remove(armies_); }, "armies.csv: found nothing of this name" + file},
        {[&] { std::filesystem::remove(armies_); std::filesystem::create_directory(armies_); },
            "armies.csv: found a folder" + file},
        {[&] { std::filesystem::resize_file(armies_, std::uintmax_t{8} << 30); },
            "armies.csv: found a file that is too large, expected at most 4 MiB"},
        {[&] { std::filesystem::remove_all(folder_); std::ofstream{folder_}; }, "Found a file" + folder},
    };
    // clang-format on
    for (const auto& test : cases) {
        Restore();
        test.Spoil();
        ExpectRefusal(test.Fault);
    }
}

TEST_F(CatalogueFolder, ReplacesTheBuiltInCatalogueAndIsPassedOverWhereNothingExists) {
    std::vector<Path> candidates{root_ / "missing", root_ / "missing/catalogue", armies_ / "catalogue"};
    EXPECT_EQ(FirstOrErrorOf(candidates), BuiltInFirst());
    candidates.insert(candidates.end(), {folder_, root_});
    EXPECT_EQ(FirstOrErrorOf(candidates), OwnFirst);
}

} // namespace
} // namespace vorhaven::test
