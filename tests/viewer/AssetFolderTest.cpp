#include "AssetFolder.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace viewer {

TEST(AssetFolder, IsTheOneThatWasInstalledWithTheProgram) {
    const TemporaryFolder prefix;
    prefix.write("share/nui/dialogs/dialog.ui", "{}");
    EXPECT_EQ(std::filesystem::path(findAssets(prefix.getPath("bin/nui-viewer"))).lexically_normal(),
              std::filesystem::path(prefix.getPath("share/nui")).lexically_normal());
}

TEST(AssetFolder, IsThatOfTheSourcesForAProgramThatIsNotInstalled) {
    const TemporaryFolder build;
    const std::string assets = findAssets(build.getPath("bin/nui-viewer"));
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(assets) / "dialogs/dialog.ui")) << assets;
    EXPECT_EQ(findAssets(), assets);
}

} // namespace viewer
