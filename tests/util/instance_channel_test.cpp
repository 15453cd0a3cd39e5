// The channel to a running instance: a real listener in this process, real starters
// (InvokeApp and raw clients), and, when run as root, another user on either end.
#include "vglobal/util/instance_channel.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "program_fixture.h"

namespace {

namespace fs = std::filesystem;
using vglobal::InstanceChannelError;
using vglobal::InstanceDelivery;
using vglobal::InstanceListener;
using vglobal::InstanceMessage;
using vglobal::SendToRunningInstance;
using Bytes = std::vector<unsigned char>;

constexpr unsigned kQuanBrowser = 5207;  // "arvenis-quan-browser"
constexpr const wchar_t* kProgram = L"arvenis-quan-browser";
constexpr std::uint32_t kArguments = vglobal::kInstanceArgumentsMessage;

Bytes Frame(std::uint32_t type, std::u16string text, std::optional<std::uint32_t> length = {}) {
  Bytes frame;
  for (std::uint32_t v : {type, length.value_or(static_cast<std::uint32_t>(text.size() * 2))})
    for (int shift = 0; shift < 32; shift += 8) frame.push_back((v >> shift) & 0xFF);
  for (char16_t unit : text) {
    frame.push_back(static_cast<unsigned char>(unit & 0xFF));
    frame.push_back(static_cast<unsigned char>(unit >> 8));
  }
  return frame;
}

int Connect(const std::string& path) {
  const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
  if (connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0) return fd;
  close(fd);
  return -1;
}

// Sends `frame` as a raw client and ends its side: whether the instance took it;
// nullopt when there was nobody to connect to.
std::optional<bool> SendRaw(const std::string& path, const Bytes& frame) {
  const int fd = Connect(path);
  if (fd < 0) return std::nullopt;
  (void)send(fd, frame.data(), frame.size(), MSG_NOSIGNAL);
  shutdown(fd, SHUT_WR);
  unsigned char answer = 0;
  const bool taken = recv(fd, &answer, 1, 0) == 1 && answer == 1;
  close(fd);
  return taken;
}

// Runs `body` in a child process that becomes the unprivileged user 65534 after
// `beforeSwitch`; ExitCode waits for its result.
pid_t AsOtherUser(const std::function<int()>& body,
                  const std::function<void()>& beforeSwitch = {}) {
  const pid_t child = fork();
  if (child == 0) {
    if (beforeSwitch) beforeSwitch();
    if (setgid(65534) != 0 || setuid(65534) != 0) _exit(90);
    _exit(body());
  }
  return child;
}
int ExitCode(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 99;
}

class InstanceChannel : public vglobal::testing::ProgramFixture {
 protected:
  std::unique_ptr<InstanceListener> Listen() {
    InstanceChannelError error = InstanceChannelError::SocketFailed;
    auto listener = InstanceListener::Start(
        kProgram,
        [this](const InstanceMessage& message) {
          std::lock_guard lock(mutex_);
          received_.push_back(message);
        },
        &error);
    EXPECT_EQ(error, InstanceChannelError::None) << vglobal::Describe(error);
    return listener;
  }
  std::vector<InstanceMessage> Received() {
    std::lock_guard lock(mutex_);
    return received_;
  }
  std::string SocketPath() const {
    return (runtime_ / "arvenis" / "arvenis-quan-browser").string();
  }

  std::mutex mutex_;
  std::vector<InstanceMessage> received_;
};

TEST_F(InstanceChannel, RunningInstanceGetsTheArgumentsUnquotedAndNothingStarts) {
  InstallProgram("arvenis-quan-browser");
  auto listener = Listen();
  ASSERT_TRUE(listener);
  EXPECT_EQ(listener->SocketPath(), SocketPath());
  void* process = reinterpret_cast<void*>(1);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, &process, L"a b \"c\" Débit \U0001D11E"), 1);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 1, &process, nullptr), 1);
  EXPECT_EQ(InvokeApp(kQuanBrowser, 0, &process, L""), 1);
  EXPECT_EQ(process, nullptr);

  // InvokeApp returns once the instance has taken the message.
  const std::vector<InstanceMessage> got = Received();
  ASSERT_EQ(got.size(), 3u);
  EXPECT_EQ(got[0].type, kArguments);
  EXPECT_EQ(got[0].text, L"a b \"c\" Débit \U0001D11E");
  EXPECT_EQ(got[1].type, vglobal::kInstanceActivateMessage);  // only: come to the front
  EXPECT_EQ(got[2].type, kArguments);
  EXPECT_EQ(got[2].text, L"");
  EXPECT_FALSE(fs::exists(recordFile_));
}

TEST_F(InstanceChannel, StaleSocketMeansNotRunningUntilTheNextInstanceClearsIt) {
  InstallProgram("arvenis-quan-browser");
  fs::create_directories(runtime_ / "arvenis");
  const int stale = socket(AF_UNIX, SOCK_STREAM, 0);  // bound, never listened on
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, SocketPath().c_str(), sizeof(address.sun_path) - 1);
  ASSERT_EQ(bind(stale, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
  close(stale);

  void* process = nullptr;
  ASSERT_EQ(InvokeApp(kQuanBrowser, 0, &process, L"x"), 1);
  EXPECT_EQ(Collect(process).args, (std::vector<std::string>{"arvenis-quan-browser", "x"}));
  auto listener = Listen();
  ASSERT_TRUE(listener);
  EXPECT_EQ(SendToRunningInstance(kProgram, L"y"), InstanceDelivery::Delivered);
}

TEST_F(InstanceChannel, OneInstanceHoldsTheNameUntilItIsDestroyed) {
  auto first = Listen();
  ASSERT_TRUE(first);
  EXPECT_EQ(fs::status(runtime_ / "arvenis").permissions(), fs::perms::owner_all);
  InstanceChannelError error = InstanceChannelError::None;
  EXPECT_EQ(InstanceListener::Start(kProgram, {}, &error), nullptr);
  EXPECT_EQ(error, InstanceChannelError::AlreadyRunning);

  first.reset();
  EXPECT_FALSE(fs::exists(SocketPath()));
  EXPECT_EQ(SendToRunningInstance(kProgram, L"gone"), InstanceDelivery::NotRunning);
  EXPECT_TRUE(Listen());
}

TEST_F(InstanceChannel, NamesAndFoldersThatCannotHoldASocketAreRefused) {
  const std::pair<std::wstring, InstanceChannelError> names[] = {
      {L"", InstanceChannelError::BadProgramName},
      {L".hidden", InstanceChannelError::BadProgramName},
      {L"dir/prog", InstanceChannelError::BadProgramName},
      {std::wstring(L"a\0b", 3), InstanceChannelError::BadProgramName},
      {std::wstring(200, L'p'), InstanceChannelError::NameTooLong},
  };
  for (const auto& [name, expected] : names) {
    InstanceChannelError error = InstanceChannelError::None;
    EXPECT_EQ(InstanceListener::Start(name, {}, &error), nullptr);
    EXPECT_EQ(error, expected);
    EXPECT_EQ(vglobal::InstanceSocketPath(name), "");
  }
  // Never through a symbolic link; a folder of ours that others could enter is narrowed.
  fs::create_directories(root_ / "elsewhere");
  fs::create_directory_symlink(root_ / "elsewhere", runtime_ / "arvenis");
  InstanceChannelError error = InstanceChannelError::None;
  EXPECT_EQ(InstanceListener::Start(kProgram, {}, &error), nullptr);
  EXPECT_EQ(error, InstanceChannelError::FolderUnusable);
  fs::remove(runtime_ / "arvenis");
  fs::create_directories(runtime_ / "arvenis");
  fs::permissions(runtime_ / "arvenis", fs::perms::all);
  EXPECT_TRUE(Listen());
  EXPECT_EQ(fs::status(runtime_ / "arvenis").permissions(), fs::perms::owner_all);
}

TEST_F(InstanceChannel, MalformedOrOversizeMessagesAreRefusedAndTheInstanceGoesOn) {
  auto listener = Listen();
  ASSERT_TRUE(listener);
  const std::uint32_t limit = vglobal::kMaxInstanceMessageBytes;
  const Bytes refused[] = {
      Frame(kArguments, u"", limit + 2),  // refused on its header alone
      Frame(kArguments, u"", 0xFFFFFFFFu),
      Frame(kArguments, std::u16string(u"o\0", 2), 3),  // odd length
      Frame(kArguments, u"ok"),                         // no terminating zero
      Frame(kArguments, std::u16string(u"o\0", 2), 6),  // ends early
      Frame(7, std::u16string(u"ok\0", 3)),             // unknown type
      Frame(vglobal::kInstanceActivateMessage, std::u16string(u"\0", 1)),
      Bytes{0x00, 0x10, 0x00},  // half a header
  };
  for (const Bytes& frame : refused) EXPECT_EQ(SendRaw(listener->SocketPath(), frame), false);
  EXPECT_TRUE(Received().empty());

  // The largest message there is room for; text after an inner zero is dropped.
  std::u16string longest(limit / 2 - 1, u'x');
  longest.push_back(u'\0');
  EXPECT_EQ(SendRaw(listener->SocketPath(), Frame(kArguments, longest)), true);
  EXPECT_EQ(SendRaw(listener->SocketPath(), Frame(kArguments, std::u16string(u"ab\0cd\0", 6))),
            true);
  // A starter does not send what the instance would refuse.
  EXPECT_EQ(SendToRunningInstance(kProgram, std::wstring(limit / 2, L'x').c_str()),
            InstanceDelivery::NotRunning);
  const std::vector<InstanceMessage> got = Received();
  ASSERT_EQ(got.size(), 2u);
  EXPECT_EQ(got[0].text.size(), limit / 2 - 1);
  EXPECT_EQ(got[1].text, L"ab");
}

TEST_F(InstanceChannel, HandlerThatThrowsLeavesTheStarterToStartTheProgram) {
  auto listener = InstanceListener::Start(
      kProgram, [](const InstanceMessage&) { throw std::runtime_error(""); });
  ASSERT_TRUE(listener);
  EXPECT_EQ(SendToRunningInstance(kProgram, L"x"), InstanceDelivery::NotRunning);
}

TEST_F(InstanceChannel, AnotherUsersStarterIsNotListenedTo) {
  if (geteuid() != 0) GTEST_SKIP() << "needs root to act as another user";
  auto listener = Listen();
  ASSERT_TRUE(listener);
  // Let the other user reach the socket, so that the instance's own check stops it.
  for (const fs::path& path : {root_, runtime_, runtime_ / "arvenis", fs::path(SocketPath())})
    fs::permissions(path, fs::perms::all);
  const Bytes frame = Frame(kArguments, std::u16string(u"intruder\0", 9));
  const std::string path = SocketPath();  // nothing is allocated in the child
  const pid_t intruder = AsOtherUser([&] {
    const std::optional<bool> taken = SendRaw(path, frame);
    return !taken ? 2 : *taken ? 1 : 0;
  });
  EXPECT_EQ(ExitCode(intruder), 0);  // reached the socket, and was hung up on
  EXPECT_TRUE(Received().empty());
  EXPECT_EQ(SendToRunningInstance(kProgram, L"mine"), InstanceDelivery::Delivered);
}

TEST_F(InstanceChannel, AnotherUsersListenerIsNeverGivenTheArguments) {
  if (geteuid() != 0) GTEST_SKIP() << "needs root to act as another user";
  InstallProgram("arvenis-quan-browser");
  fs::create_directories(runtime_ / "arvenis");
  int ready[2], done[2];
  ASSERT_EQ(pipe(ready), 0);
  ASSERT_EQ(pipe(done), 0);
  // Bound here by root and listened on as the other user, who is then its owner as a
  // peer sees it; it stays until this test says done.
  int fd = -1;
  const std::string path = SocketPath();  // nothing is allocated in the child
  const pid_t other = AsOtherUser(
      [&] {
        char byte = 1;
        if (listen(fd, 4) != 0 || write(ready[1], &byte, 1) != 1) return 92;
        return read(done[0], &byte, 1) >= 0 ? 0 : 93;  // until the test closes its end
      },
      [&] {
        close(ready[0]);
        close(done[1]);  // so that the test's close of its end is seen here
        fd = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
        if (bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) _exit(91);
      });
  close(ready[1]);  // so that a child that fails is seen here as the end of the pipe
  char byte = 0;
  const bool listening = read(ready[0], &byte, 1) == 1;
  if (listening) {
    void* process = nullptr;
    EXPECT_EQ(SendToRunningInstance(kProgram, L"secret"), InstanceDelivery::NotRunning);
    EXPECT_EQ(InvokeApp(kQuanBrowser, 0, &process, L"secret"), 1);
    EXPECT_EQ(Collect(process).args, (std::vector<std::string>{"arvenis-quan-browser", "secret"}));
  }
  close(done[1]);
  EXPECT_EQ(ExitCode(other), 0);
  EXPECT_TRUE(listening);
  for (int end : {ready[0], done[0]}) close(end);
}

}  // namespace
