#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <set>

#include "platform/FileSystem.h"
#include "platform/posix/PosixFileSystem.h"
#include "simulation/ports/MemoryFileSystem.h"
#include "simulation/ports/SimWorld.h"
#include "support/TempFolder.h"

namespace tarvel {
namespace {

Bytes bytesOf(std::string_view text) {
  return Bytes(text.begin(), text.end());
}

TEST(Paths, Parts) {
  const std::array<const char*, 5> cases[] = {{"/a/b.b1", "b.b1", "/a", "b", "b1"},
                                              {"/a", "a", "/", "a", ""},
                                              {"/x/.a", ".a", "/x", ".a", ""},
                                              {"/x.d/a.tar.gz", "a.tar.gz", "/x.d", "a.tar", "gz"}};
  for (const auto& [path, name, parent, stem, extension] : cases) {
    EXPECT_EQ(fileNameOf(path), name);
    EXPECT_EQ(parentOf(path), parent);
    EXPECT_EQ(join(parent, name), path);
    EXPECT_EQ(withoutExtension(name), stem);
    EXPECT_EQ(extensionOf(name), extension);
  }
}

/// What every disk promises, whether it is the machine's or the tests' own.
class FileSystemContract : public testing::TestWithParam<bool> {
 protected:
  Path at(const std::string& name) const { return join(folder_, name); }

  TempFolder temp_;
  SimWorld world_;
  PosixFileSystem real_;
  MemoryFileSystem memory_{world_.clock()};
  FileSystem& disk_ = GetParam() ? static_cast<FileSystem&>(real_) : memory_;
  const Path folder_ = GetParam() ? temp_.path() + "/in/a/row" : "/in/a/row";
  void SetUp() override { ASSERT_TRUE(disk_.createFolders(folder_)); }
};

INSTANTIATE_TEST_SUITE_P(, FileSystemContract, testing::Bool(),
                         [](const auto& instance) { return instance.param ? "real" : "memory"; });

TEST_P(FileSystemContract, KeepsContentAndAttributes) {
  for (const Bytes& content : {bytesOf("first"), Bytes(300'000, 7), bytesOf("second"), Bytes{}}) {
    ASSERT_TRUE(disk_.write(at("f"), content));
    EXPECT_EQ(*disk_.read(at("f")), content);
    EXPECT_EQ(disk_.info(at("f"))->size, static_cast<std::int64_t>(content.size()));
  }
  ASSERT_TRUE(disk_.setAttributes(at("f"), {Instant{-86'400.5}, {}}));
  ASSERT_TRUE(disk_.setAttributes(at("f"), {{}, std::uint16_t{0700}}));
  EXPECT_EQ(disk_.info(at("f"))->modificationDate, Instant{-86'400.5});
  EXPECT_TRUE(disk_.sync(at("f")) && disk_.sync(folder_));
}

TEST_P(FileSystemContract, ListsInOrderOfNames) {
  for (const char* name : {"b", ".hidden", "a", "B", "10", "9"}) ASSERT_TRUE(disk_.write(at(name), {}));
  ASSERT_TRUE(disk_.createFolders(at("aa")));
  std::string all, visible;
  for (const FolderEntry& entry : *disk_.list(folder_)) all += entry.name + " ";
  for (const FolderEntry& entry : *listVisible(disk_, folder_)) visible += entry.name + " ";
  EXPECT_EQ(all, ".hidden 10 9 B a aa b ");
  EXPECT_EQ(visible, "10 9 B a aa b ");
}

TEST_P(FileSystemContract, RenamesOverAFileAndRemovesTrees) {
  ASSERT_TRUE(disk_.createFolders(at("tree/of/folders")));
  ASSERT_TRUE(disk_.write(at("tree/of/old"), bytesOf("old")));
  ASSERT_TRUE(disk_.write(at("tree/of/new"), bytesOf("new")));
  ASSERT_TRUE(disk_.rename(at("tree/of/new"), at("tree/of/old")));
  EXPECT_EQ(*disk_.read(at("tree/of/old")), bytesOf("new"));
  ASSERT_TRUE(disk_.remove(at("tree")));
  EXPECT_TRUE(disk_.list(folder_)->empty());
}

TEST_P(FileSystemContract, FailsInWords) {
  ASSERT_TRUE(disk_.write(at("file"), {}));
  const std::optional<Error> failures[] = {disk_.read(at("none")).error(),
                                           disk_.read(folder_).error(),
                                           disk_.write(at("none/f"), {}).error(),
                                           disk_.write(folder_, {}).error(),
                                           disk_.setAttributes(at("none"), {Instant{}, {}}).error(),
                                           disk_.sync(at("none")).error(),
                                           disk_.rename(at("none"), at("f")).error(),
                                           disk_.remove(at("none")).error(),
                                           disk_.list(at("none")).error(),
                                           disk_.list(at("file")).error(),
                                           disk_.createFolders(at("file")).error(),
                                           disk_.createFolders(at("file/folder")).error()};
  for (const auto& error : failures) EXPECT_FALSE(error->description.empty()) << &error - failures;
  EXPECT_EQ(failures[0]->description, "No such file or directory");
}

TEST(PosixFileSystem, FollowsLinksOnlyToRead) {
  const TempFolder temp;
  PosixFileSystem disk;
  const Path keep = temp.path() + "/keep", link = temp.path() + "/link/to";
  ASSERT_TRUE(disk.createFolders(keep));
  ASSERT_TRUE(disk.write(keep + "/f", bytesOf("kept")));
  ASSERT_TRUE(disk.createFolders(temp.path() + "/link"));
  ASSERT_EQ(::symlink(keep.c_str(), link.c_str()), 0);
  EXPECT_EQ(*disk.read(link + "/f"), bytesOf("kept"));
  EXPECT_EQ(disk.info(link)->kind, FileKind::folder);
  EXPECT_EQ(disk.list(temp.path() + "/link")->front().kind, FileKind::other);
  const Path linkToFile = temp.path() + "/link/to-file";
  ASSERT_EQ(::symlink((keep + "/f").c_str(), linkToFile.c_str()), 0);
  EXPECT_FALSE(disk.write(linkToFile, bytesOf("lost")));
  ASSERT_TRUE(disk.remove(temp.path() + "/link"));
  EXPECT_EQ(*disk.read(keep + "/f"), bytesOf("kept"));
}

TEST(PosixFileSystem, RefusesAPipeAndAFullDisk) {
  const TempFolder temp;
  PosixFileSystem disk;
  ASSERT_EQ(::mkfifo((temp.path() + "/pipe").c_str(), 0600), 0);
  EXPECT_FALSE(disk.read(temp.path() + "/pipe"));
  EXPECT_FALSE(disk.write(temp.path() + "/pipe", bytesOf("x")));
  if (disk.info("/dev/full")) {
    EXPECT_EQ(disk.write("/dev/full", bytesOf("x")).error().description, "No space left on device");
  }
  ASSERT_TRUE(disk.write(temp.path() + "/f", {}));
  ASSERT_TRUE(disk.setAttributes(temp.path() + "/f", {{}, std::uint16_t{0640}}));
  struct stat status {};
  ASSERT_EQ(::stat((temp.path() + "/f").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

TEST(MemoryFileSystem, ACrashKeepsWhatWasSyncedAlone) {
  SimWorld world;
  MemoryFileSystem disk(world.clock());
  ASSERT_TRUE(disk.createFolders("/s"));
  ASSERT_TRUE(disk.write("/s/a", Bytes{1}));
  disk.syncAll();
  const auto safe = disk.snapshot();
  ASSERT_TRUE(disk.write("/s/a", Bytes{2, 2}));
  ASSERT_TRUE(disk.write("/s/b", Bytes{3}));
  ASSERT_TRUE(disk.sync("/s/b"));  // its content, not its name
  ASSERT_TRUE(disk.remove("/s/a"));
  disk.crash();
  EXPECT_EQ(disk.snapshot(), safe);

  std::set<std::string> contents;
  bool bothNames = false, none = false;
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    MemoryFileSystem torn(world.clock());
    ASSERT_TRUE(torn.write("/a", Bytes{1, 1, 1}));
    torn.syncAll();
    ASSERT_TRUE(torn.write("/a", Bytes{2, 2}));
    ASSERT_TRUE(torn.rename("/a", "/b"));
    SeededRandom random(seed);
    torn.crash(random);
    const auto left = torn.snapshot();
    bothNames |= left.size() > 1;
    none |= left.empty();
    for (const auto& [path, file] : left) contents.emplace(file.content.begin(), file.content.end());
  }
  EXPECT_EQ(contents, (std::set<std::string>{"", "\2", "\2\2", "\1\1\1"}));
  EXPECT_FALSE(bothNames || none) << "a rename is one step";
}

}  // namespace
}  // namespace tarvel
