// SPDX-License-Identifier: MIT
// What every system must do for files; no more than standard C++, so that it runs on each.
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "media/system_file.h"
#include "project/file_lock.h"

namespace {

namespace fs = std::filesystem;
using system_file::Creation;

constexpr int kRights = 0600;
constexpr std::int64_t kFiveGigabytes = std::int64_t{5} << 30;

class ASystemFile : public testing::Test {
protected:
  void SetUp() override {
    m_folder =
        fs::temp_directory_path() / ("framenote-files-" + std::to_string(std::random_device()()));
    ASSERT_TRUE(fs::create_directory(m_folder));
  }
  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  std::string In(std::string const &name) const { return (m_folder / fs::u8path(name)).u8string(); }
  static int Create(std::string const &path) {
    return system_file::OpenToWrite(path, Creation::New, kRights);
  }
  static void Write(std::string const &path, std::string const &bytes) {
    int const file = system_file::OpenToWrite(path, Creation::Emptied, kRights);
    ASSERT_GE(file, 0);
    EXPECT_EQ(system_file::WriteSome(file, bytes.data(), bytes.size()),
              static_cast<std::ptrdiff_t>(bytes.size()));
    EXPECT_EQ(system_file::Sync(file), 0);
    EXPECT_EQ(system_file::Close(file), 0);
  }
  static std::string Read(std::string const &path) {
    std::FILE *const file = system_file::OpenToRead(path);
    if (file == nullptr) return "cannot be read";
    char bytes[64];
    std::string const all(bytes, std::fread(bytes, 1, sizeof bytes, file));
    std::fclose(file);
    return all;
  }

  fs::path m_folder;
};

TEST_F(ASystemFile, IsMadeOnlyOnceIfItMustBeNew) {
  int const first = Create(In("file"));
  ASSERT_GE(first, 0);
  errno = 0;
  EXPECT_LT(Create(In("file")), 0);
  EXPECT_EQ(errno, EEXIST);
  EXPECT_EQ(system_file::Close(first), 0);
}

TEST_F(ASystemFile, SaysWhyItCannotBeOpened) {
  errno = 0;
  EXPECT_LT(Create(In("missing/file")), 0);
  EXPECT_EQ(errno, ENOENT);
  errno = 0;
  EXPECT_EQ(system_file::OpenToRead(In("missing")), nullptr);
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(ASystemFile, IsEmptiedAndKeepsEveryByte) {
  Write(In("file"), "what was there before");
  Write(In("file"), std::string("a\nb\r\n\x1a\0c", 9));
  EXPECT_EQ(Read(In("file")), std::string("a\nb\r\n\x1a\0c", 9));
}

TEST_F(ASystemFile, HasAnyNameThatIsText) {
  std::string const path = In("gr\u00f6\u00dfe \u65e5\u672c \U0001f4f7.txt");
  Write(path, "x");
  EXPECT_TRUE(fs::exists(fs::u8path(path)));
  EXPECT_EQ(Read(path), "x");
  EXPECT_TRUE(system_file::ChangedAt(path).has_value());
}

TEST_F(ASystemFile, MayBeLargerThan32BitsCount) {
  int const file = Create(In("large"));
  ASSERT_GE(file, 0);
  EXPECT_EQ(system_file::Move(file, kFiveGigabytes, SEEK_SET), kFiveGigabytes);
  EXPECT_EQ(system_file::WriteSome(file, "z", 1), 1);
  EXPECT_EQ(system_file::Move(file, 0, SEEK_CUR), kFiveGigabytes + 1);
  EXPECT_EQ(system_file::Size(file), kFiveGigabytes + 1);
  EXPECT_EQ(system_file::Close(file), 0);

  std::FILE *const read = system_file::OpenToRead(In("large"));
  ASSERT_NE(read, nullptr);
  EXPECT_TRUE(system_file::Seek(*read, -1, SEEK_END));
  EXPECT_EQ(system_file::Position(*read), kFiveGigabytes);
  EXPECT_EQ(std::fgetc(read), 'z');
  std::fclose(read);
}

TEST_F(ASystemFile, MayBeRemovedWhileItIsOpen) {
  int const file = Create(In("file"));
  ASSERT_GE(file, 0);
  std::error_code error;
  EXPECT_TRUE(fs::remove(fs::u8path(In("file")), error)) << error.message();
  EXPECT_EQ(system_file::Close(file), 0);
  EXPECT_FALSE(fs::exists(fs::u8path(In("file"))));
}

TEST_F(ASystemFile, MayBeOpenedOnceMoreWhileItIsOpen) {
  int const file = Create(In("file"));
  ASSERT_GE(file, 0);
  Write(In("file"), "by name");
  EXPECT_EQ(system_file::Close(file), 0);
  EXPECT_EQ(Read(In("file")), "by name");
}

TEST_F(ASystemFile, TellsWhenItWasChanged) {
  constexpr double kMinute = 60.0;
  Write(In("file"), "x");
  std::optional<std::time_t> const changed = system_file::ChangedAt(In("file"));
  ASSERT_TRUE(changed.has_value());
  EXPECT_LT(std::abs(std::difftime(*changed, std::time(nullptr))), kMinute);
  EXPECT_FALSE(system_file::ChangedAt(In("missing")).has_value());
}

TEST_F(ASystemFile, HasItsNameOnTheDisk) {
  Write(In("file"), "x");
  EXPECT_EQ(system_file::SyncNames(In("")), 0);
}

using AFileLock = ASystemFile;

TEST_F(AFileLock, IsHeldOnce) {
  FileLock const owner(In("lock"), FileLock::Use::Own);
  EXPECT_TRUE(owner.IsHeld()) << owner.Cause();
  FileLock const second(In("lock"), FileLock::Use::Own);
  EXPECT_FALSE(second.IsHeld());
  EXPECT_FALSE(second.Cause().empty());
  EXPECT_FALSE(FileLock(In("lock"), FileLock::Use::Probe).IsHeld());
}

TEST_F(AFileLock, IsFreeAfterItsOwner) {
  { FileLock const owner(In("lock"), FileLock::Use::Own); }
  FileLock const probe(In("lock"), FileLock::Use::Probe);
  EXPECT_TRUE(probe.IsHeld()) << probe.Cause();
  EXPECT_TRUE(FileLock(In("lock"), FileLock::Use::Probe).IsHeld());
}

TEST_F(AFileLock, IsNotMadeByAskingForIt) {
  EXPECT_FALSE(FileLock(In("lock"), FileLock::Use::Probe).IsHeld());
  EXPECT_FALSE(fs::exists(fs::u8path(In("lock"))));
}

TEST_F(AFileLock, MayBeRemovedByItsOwner) {
  {
    FileLock const owner(In("lock"), FileLock::Use::Own);
    std::error_code error;
    EXPECT_TRUE(fs::remove(fs::u8path(In("lock")), error)) << error.message();
  }
  EXPECT_FALSE(fs::exists(fs::u8path(In("lock"))));
}

}  // namespace
