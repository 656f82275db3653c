#include "console/run/target_file.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>

#include "tests/console/failing.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using tests::Read;

class TargetFileTest : public testing::Test {
 protected:
  fs::path At(const char* name) const { return folder_ / name; }
  static std::wstring Wide(const fs::path& path) { return values::FromUtf8(path.string()); }
  static void Write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }
  static struct stat StatusOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status;
  }
  static unsigned Permissions(const fs::path& path) { return StatusOf(path).st_mode & 07777U; }
  static std::pair<uid_t, gid_t> OwnerAndGroup(const fs::path& path) {
    const struct stat status = StatusOf(path);
    return {status.st_uid, status.st_gid};
  }
  std::vector<std::string> Names() const { return folder_.Names(); }

  // Writes to a pipe that nobody reads, as kodrarpt writes messages when its errors go to a program that has ended.
  // Returns the number of the error.
  static int WriteWithoutReader() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    const int error = write(ends[1], "x", 1) < 0 ? errno : 0;
    close(ends[1]);
    return error;
  }

  const tests::TemporaryFolder folder_;
};

TEST_F(TargetFileTest, AppearsOnlyWhenItIsComplete) {
  {
    TargetFile file(Wide(At("relatório.csv")));
    file.Write("A,B\r\n");
    EXPECT_FALSE(fs::exists(At("relatório.csv")));
    file.Commit();
    EXPECT_EQ(Read(At("relatório.csv")), "A,B\r\n");
  }
  EXPECT_EQ(Names(), std::vector<std::string>{"relatório.csv"});
}

TEST_F(TargetFileTest, LeavesThePreviousFileUnchangedWithoutCommit) {
  Write(At("a.csv"), "antes");
  {
    TargetFile file(Wide(At("a.csv")));
    file.Write(std::string(100000, 'x'));
    EXPECT_EQ(Names().size(), 2U);
  }
  EXPECT_EQ(Names(), std::vector<std::string>{"a.csv"});
  EXPECT_EQ(Read(At("a.csv")), "antes");
}

TEST_F(TargetFileTest, TakesAnotherNameWhenAKilledRunLeftItsFile) {
  const std::string name = ".a.csv." + std::to_string(getpid());
  Write(At((name + ".parcial").c_str()), "morto");
  {
    TargetFile file(Wide(At("a.csv")));
    EXPECT_EQ(file.Path(), At((name + "-2.parcial").c_str()));
    file.Write("inteiro");
    file.Commit();
  }
  EXPECT_EQ(Read(At("a.csv")), "inteiro");
  EXPECT_EQ(Names(), (std::vector<std::string>{name + ".parcial", "a.csv"}));
  EXPECT_EQ(Read(At((name + ".parcial").c_str())), "morto");
}

TEST_F(TargetFileTest, NamesTheUnfinishedFileThatIsInItsWay) {
  const std::string name = ".a.csv." + std::to_string(getpid());
  Write(At((name + ".parcial").c_str()), "");
  for (int attempt = 2; attempt <= 100; ++attempt)
    Write(At((name + "-" + std::to_string(attempt) + ".parcial").c_str()), "");
  const std::string last = At((name + "-100.parcial").c_str()).string();
  EXPECT_EQ(FailureOf([&] { TargetFile file(Wide(At("a.csv"))); }),
            "não foi possível gravar \"" + last + "\": já existe um arquivo com esse nome; escolha outro.");
  EXPECT_EQ(Names().size(), 100U);
}

TEST_F(TargetFileTest, KeepsThePermissionsOfThePreviousFile) {
  Write(At("a.csv"), "antes");
  fs::permissions(At("a.csv"), fs::perms::owner_read | fs::perms::group_read);
  TargetFile file(Wide(At("a.csv")));
  file.Commit();
  EXPECT_EQ(Permissions(At("a.csv")), 0440U);
  EXPECT_EQ(Read(At("a.csv")), "");
}

TEST_F(TargetFileTest, IsReadableOnlyByItsOwnerUntilItReplacesAFile) {
  Write(At("a.csv"), "antes");
  fs::permissions(At("a.csv"), static_cast<fs::perms>(0644));
  TargetFile file(Wide(At("a.csv")));
  EXPECT_EQ(Permissions(file.Path()), 0600U);
  file.Commit();
  EXPECT_EQ(Permissions(At("a.csv")), 0644U);
}

TEST_F(TargetFileTest, HasTheDefaultPermissionsWhenItIsNew) {
  const mode_t former = umask(027);
  TargetFile file(Wide(At("a.csv")));
  file.Commit();
  umask(former);
  EXPECT_EQ(Permissions(At("a.csv")), 0640U);
}

TEST_F(TargetFileTest, KeepsNoSetUidBit) {
  Write(At("a.csv"), "antes");
  fs::permissions(At("a.csv"), static_cast<fs::perms>(06755));
  TargetFile file(Wide(At("a.csv")));
  file.Commit();
  EXPECT_EQ(Permissions(At("a.csv")), 0755U);
}

TEST_F(TargetFileTest, KeepsOwnerAndGroupOfThePreviousFile) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may give a file to another user";
  Write(At("a.csv"), "antes");
  ASSERT_EQ(chown(At("a.csv").c_str(), 12345, 23456), 0);
  fs::permissions(At("a.csv"), static_cast<fs::perms>(0640));
  TargetFile file(Wide(At("a.csv")));
  file.Commit();
  EXPECT_EQ(OwnerAndGroup(At("a.csv")), (std::pair<uid_t, gid_t>(12345, 23456)));
  EXPECT_EQ(Permissions(At("a.csv")), 0640U);
}

TEST_F(TargetFileTest, GivesAnotherGroupOnlyThePermissionsOfEverybody) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may become another user";
  Write(At("a.csv"), "antes");
  fs::permissions(At("a.csv"), static_cast<fs::perms>(0664));
  fs::permissions(folder_.Path(), static_cast<fs::perms>(0777));
  const pid_t child = fork();
  if (child == 0) {
    if (setgroups(0, nullptr) != 0 || setgid(54321) != 0 || setuid(54321) != 0) _exit(1);
    TargetFile file(Wide(At("a.csv")));
    file.Commit();
    _exit(0);
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
  EXPECT_EQ(OwnerAndGroup(At("a.csv")), (std::pair<uid_t, gid_t>(54321, 54321)));
  EXPECT_EQ(Permissions(At("a.csv")), 0644U);
}

TEST_F(TargetFileTest, ReplacesTheTargetOfALink) {
  Write(At("a.csv"), "antes");
  fs::create_symlink(At("a.csv"), At("link.csv"));
  TargetFile file(Wide(At("link.csv")));
  file.Write("depois");
  file.Commit();
  EXPECT_TRUE(fs::is_symlink(At("link.csv")));
  EXPECT_EQ(Read(At("a.csv")), "depois");
}

TEST_F(TargetFileTest, WritesToADeviceDirectly) {
  TargetFile file(L"/dev/null");
  EXPECT_EQ(file.Path(), "/dev/null");
  file.Write("x");
  file.Commit();
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(TargetFileTest, SaysWhyItCannotBeMade) {
  const auto failure = [](const fs::path& path) { return FailureOf([&] { TargetFile file(Wide(path)); }); };
  const std::string missing = At("não/há.csv").string();
  EXPECT_EQ(failure(missing),
            "não foi possível gravar \"" + missing + "\": a pasta não existe; crie-a, ou confira o caminho.");
  EXPECT_EQ(failure(folder_.Path()),
            "não foi possível gravar \"" + folder_.Path().string() + "\": é uma pasta; informe um arquivo.");
  Write(At("a.csv"), "antes");
  const std::string below = (At("a.csv") / "b.csv").string();
  EXPECT_EQ(failure(below), "não foi possível gravar \"" + below +
                                "\": o caminho passa por um arquivo como se fosse uma pasta; confira-o.");
}

TEST_F(TargetFileTest, SaysThatTheDiskIsFull) {
  TargetFile file(L"/dev/full");
  file.Write("x");
  EXPECT_EQ(FailureOf([&] { file.Commit(); }),
            "não foi possível gravar \"/dev/full\": o disco está cheio; libere espaço ou use outro.");
}

TEST_F(TargetFileTest, IsCompletedWhenTheProgramsMessagesHaveNoReader) {
  const auto writeAFile = [this] {
    signal(SIGPIPE, SIG_DFL);
    TargetFile file(Wide(At("a.csv")));
    file.Write("linha");
    if (WriteWithoutReader() == EPIPE) file.Commit();
    std::_Exit(0);
  };
  EXPECT_EXIT(writeAFile(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.csv"});
  EXPECT_EQ(Read(At("a.csv")), "linha");
}

TEST_F(TargetFileTest, IsRemovedWhenItGrowsBeyondTheLargestFileOfTheUser) {
  const auto writeAFile = [this] {
    const rlimit small{.rlim_cur = 100, .rlim_max = 100};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string target = At("a.csv").string();
    const std::string failure = FailureOf([&] {
      TargetFile file(Wide(target));
      file.Write("linha");
      file.Write(std::string(1000, 'x'));
      file.Commit();
    });
    std::_Exit(failure == "não foi possível gravar \"" + target +
                              "\": o arquivo é grande demais para o disco; escolha outro."
                   ? 0
                   : 1);
  };
  EXPECT_EXIT(writeAFile(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(Names(), std::vector<std::string>{});
}

TEST_F(TargetFileTest, LeavesTheProgramsSignalsAsTheyWere) {
  const auto previous = signal(SIGPIPE, SIG_DFL);
  { const TargetFile file(Wide(At("a.csv"))); }
  EXPECT_EQ(signal(SIGPIPE, previous), SIG_DFL);
}

}  // namespace
}  // namespace kodra::console
