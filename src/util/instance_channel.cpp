// The channel to a running instance (contract in vglobal/util/instance_channel.h).
//
// Map of this file:
//   names and the socket folder   where a program's socket lives, and whether the
//                                 folder is a private one of ours
//   sockets                       descriptors, peer check, reading against a deadline
//   messages                      the frame: encoding and checking
//   the starter's side            SendToRunningInstance
//   the instance's side           InstanceListener
#include "vglobal/util/instance_channel.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace {

using Clock = std::chrono::steady_clock;

// A starter waits this long for the instance to take its message; the instance gives
// a connection this long to deliver one.
constexpr int kAnswerWaitMs = 5000;
constexpr auto kReadLimit = std::chrono::seconds(2);
constexpr std::size_t kHeaderBytes = 8;
constexpr unsigned char kTaken = 1;
constexpr int kOutOfResourcesPauseMs = 100;

// ---- Names and the socket folder -------------------------------------------

std::string SocketFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime && runtime[0] == '/') return std::string(runtime) + "/arvenis";
  return "/tmp/arvenis-" + std::to_string(geteuid());
}

// The program's name as a file name of the folder (UTF-8).
std::optional<std::string> SocketName(std::wstring_view programName) {
  if (programName.empty() || programName.front() == L'.') return std::nullopt;
  if (programName.find_first_of(std::wstring_view(L"/\0", 2)) != std::wstring_view::npos)
    return std::nullopt;
  return WideToUtf8(programName);
}

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() { Reset(); }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    if (this != &other) {
      Reset();
      fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
  }
  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  void Reset() {
    if (fd_ >= 0) close(fd_);
    fd_ = -1;
  }

 private:
  int fd_ = -1;
};

// Opens the socket folder as a private folder of ours: never through a symbolic link,
// never another user's. The instance makes it, and narrows a folder of ours that
// others could enter; a starter only looks.
Descriptor OpenSocketFolder(const std::string& path, bool forInstance) {
  if (forInstance && mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) return Descriptor();
  Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!folder.valid()) return Descriptor();
  struct stat info {};
  if (fstat(folder.get(), &info) != 0 || info.st_uid != geteuid()) return Descriptor();
  if ((info.st_mode & 077) != 0 && forInstance && fchmod(folder.get(), 0700) != 0)
    return Descriptor();
  return folder;
}

bool MakeAddress(const std::string& path, sockaddr_un& address) {
  address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path)) return false;
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  return true;
}

// ---- Sockets ----------------------------------------------------------------

bool PeerIsOwnUser(int socket) {
  ucred peer{};
  socklen_t size = sizeof(peer);
  if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 || size != sizeof(peer))
    return false;
  return peer.uid == geteuid();
}

bool SendAll(int socket, const std::vector<unsigned char>& bytes) {
  std::size_t sent = 0;
  while (sent < bytes.size()) {
    const ssize_t n = send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    sent += static_cast<std::size_t>(n);
  }
  return true;
}

enum class ReadResult { Complete, Failed, Stopping };

// Reads exactly `size` bytes from a non-blocking socket before `deadline`; gives up
// early when `stop` becomes readable.
ReadResult ReadExactly(int socket, unsigned char* data, std::size_t size,
                       Clock::time_point deadline, int stop) {
  std::size_t got = 0;
  while (got < size) {
    const ssize_t n = recv(socket, data + got, size - got, 0);
    if (n > 0) {
      got += static_cast<std::size_t>(n);
      continue;
    }
    if (n == 0) return ReadResult::Failed;  // the peer hung up early
    if (errno == EINTR) continue;
    if (errno != EAGAIN && errno != EWOULDBLOCK) return ReadResult::Failed;
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return ReadResult::Failed;
    pollfd waits[2] = {{socket, POLLIN, 0}, {stop, POLLIN, 0}};
    if (poll(waits, 2, static_cast<int>(left)) < 0 && errno != EINTR) return ReadResult::Failed;
    if (waits[1].revents != 0) return ReadResult::Stopping;
  }
  return ReadResult::Complete;
}

// ---- Messages ---------------------------------------------------------------

void PutUint32(std::vector<unsigned char>& out, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8)
    out.push_back(static_cast<unsigned char>(value >> shift));
}

std::uint32_t GetUint32(const unsigned char* in) {
  return static_cast<std::uint32_t>(in[0]) | static_cast<std::uint32_t>(in[1]) << 8 |
         static_cast<std::uint32_t>(in[2]) << 16 | static_cast<std::uint32_t>(in[3]) << 24;
}

// The frame for `arguments` (null: the request to come to the front); nullopt when the
// text does not fit a message.
std::optional<std::vector<unsigned char>> EncodeMessage(const wchar_t* arguments) {
  std::vector<unsigned char> frame;
  if (!arguments) {
    PutUint32(frame, kInstanceActivateMessage);
    PutUint32(frame, 0);
    return frame;
  }
  std::u16string text = WideToUtf16(arguments);
  text.push_back(u'\0');
  const std::size_t length = text.size() * 2;
  if (length > kMaxInstanceMessageBytes) return std::nullopt;
  PutUint32(frame, kInstanceArgumentsMessage);
  PutUint32(frame, static_cast<std::uint32_t>(length));
  for (char16_t unit : text) {
    frame.push_back(static_cast<unsigned char>(unit & 0xFF));
    frame.push_back(static_cast<unsigned char>(unit >> 8));
  }
  return frame;
}

// Whether a header announces a message this channel takes.
bool HeaderAcceptable(std::uint32_t type, std::uint32_t length) {
  if (type == kInstanceActivateMessage) return length == 0;
  if (type == kInstanceArgumentsMessage)
    return length >= 2 && length % 2 == 0 && length <= kMaxInstanceMessageBytes;
  return false;
}

// The text of an arguments message; nullopt when it lacks its terminating zero.
std::optional<std::wstring> DecodeArguments(const std::vector<unsigned char>& bytes) {
  std::wstring text =
      Utf16LeToWide(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  if (text.empty() || text.back() != L'\0') return std::nullopt;
  text.resize(text.find(L'\0'));
  return text;
}

}  // namespace

const char* Describe(InstanceChannelError error) {
  switch (error) {
    case InstanceChannelError::None:
      return "no error";
    case InstanceChannelError::BadProgramName:
      return "the program name cannot name a socket";
    case InstanceChannelError::NameTooLong:
      return "the socket path is too long";
    case InstanceChannelError::FolderUnusable:
      return "the socket folder cannot be made or is not a private folder of this user";
    case InstanceChannelError::AlreadyRunning:
      return "another instance of the program is running";
    case InstanceChannelError::SocketFailed:
      return "the system refused a socket, lock or thread";
  }
  return "unknown error";
}

std::string InstanceSocketPath(std::wstring_view programName) {
  std::optional<std::string> name = SocketName(programName);
  if (!name) return std::string();
  std::string path = SocketFolder() + "/" + *name;
  sockaddr_un address;
  return MakeAddress(path, address) ? path : std::string();
}

// ---- The starter's side -----------------------------------------------------

InstanceDelivery SendToRunningInstance(std::wstring_view programName, const wchar_t* arguments) {
  const std::string path = InstanceSocketPath(programName);
  sockaddr_un address;
  if (path.empty() || !MakeAddress(path, address)) return InstanceDelivery::NotRunning;
  if (!OpenSocketFolder(SocketFolder(), false).valid()) return InstanceDelivery::NotRunning;
  std::optional<std::vector<unsigned char>> frame = EncodeMessage(arguments);
  if (!frame) return InstanceDelivery::NotRunning;  // too long: a new instance takes it

  Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!socket.valid()) return InstanceDelivery::NotRunning;
  // Bounds both a connect to an instance whose queue is full and the send.
  const timeval limit{kAnswerWaitMs / 1000, 0};
  setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof(limit));
  int result;
  do {
    result = connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  } while (result != 0 && errno == EINTR);
  // No socket, or a socket file nobody listens on (its instance ended uncleanly). A
  // connect resumed after a signal may find itself already done.
  if (result != 0 && errno != EISCONN) return InstanceDelivery::NotRunning;
  if (!PeerIsOwnUser(socket.get())) return InstanceDelivery::NotRunning;
  if (!SendAll(socket.get(), *frame)) return InstanceDelivery::NotRunning;

  pollfd answer{socket.get(), POLLIN, 0};
  const auto deadline = Clock::now() + std::chrono::milliseconds(kAnswerWaitMs);
  while (true) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return InstanceDelivery::Delivered;  // there, but busy
    const int ready = poll(&answer, 1, static_cast<int>(left));
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) return ready == 0 ? InstanceDelivery::Delivered : InstanceDelivery::NotRunning;
    break;
  }
  unsigned char byte = 0;
  ssize_t n;
  do {
    n = recv(socket.get(), &byte, 1, 0);
  } while (n < 0 && errno == EINTR);
  return n == 1 && byte == kTaken ? InstanceDelivery::Delivered : InstanceDelivery::NotRunning;
}

// ---- The instance's side ----------------------------------------------------

struct InstanceListener::State {
  Handler handler;
  std::string path;
  Descriptor folder;
  std::string socketName;
  Descriptor lock;
  Descriptor listening;
  Descriptor stop;  // an eventfd, made readable once to end the thread
  std::thread thread;

  void Run();
  void Serve(int connection);
};

void InstanceListener::State::Run() {
  while (true) {
    pollfd waits[2] = {{listening.get(), POLLIN, 0}, {stop.get(), POLLIN, 0}};
    if (poll(waits, 2, -1) < 0) {
      if (errno == EINTR) continue;
      return;
    }
    if (waits[1].revents != 0) return;
    if (waits[0].revents == 0) continue;
    Descriptor connection(accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection.valid()) {
      // Out of descriptors or memory, the waiting connection stays and the listening
      // socket stays readable: pause instead of spinning, still ready to stop.
      if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
        pollfd pause{stop.get(), POLLIN, 0};
        if (poll(&pause, 1, kOutOfResourcesPauseMs) > 0) return;
      }
      continue;  // otherwise it went away before it was taken
    }
    if (!PeerIsOwnUser(connection.get())) continue;
    Serve(connection.get());
  }
}

void InstanceListener::State::Serve(int connection) {
  const auto deadline = Clock::now() + kReadLimit;
  unsigned char header[kHeaderBytes];
  if (ReadExactly(connection, header, sizeof(header), deadline, stop.get()) != ReadResult::Complete)
    return;
  InstanceMessage message;
  message.type = GetUint32(header);
  const std::uint32_t length = GetUint32(header + 4);
  // Checked before anything is read or allocated for the body.
  if (!HeaderAcceptable(message.type, length)) return;
  if (message.type == kInstanceArgumentsMessage) {
    std::vector<unsigned char> body(length);
    if (ReadExactly(connection, body.data(), body.size(), deadline, stop.get()) !=
        ReadResult::Complete)
      return;
    std::optional<std::wstring> text = DecodeArguments(body);
    if (!text) return;
    message.text = std::move(*text);
  }
  try {
    handler(message);
  } catch (...) {
    // The handler's failure is its program's to report; the instance keeps listening,
    // and the starter learns that the message was not taken.
    return;
  }
  const unsigned char taken = kTaken;
  (void)send(connection, &taken, 1, MSG_NOSIGNAL);
}

std::unique_ptr<InstanceListener> InstanceListener::Start(std::wstring_view programName,
                                                          Handler handler,
                                                          InstanceChannelError* error) {
  auto fail = [error](InstanceChannelError why) {
    if (error) *error = why;
    return std::unique_ptr<InstanceListener>();
  };
  if (error) *error = InstanceChannelError::None;
  std::optional<std::string> name = SocketName(programName);
  if (!name) return fail(InstanceChannelError::BadProgramName);
  auto state = std::make_unique<State>();
  state->handler = std::move(handler);
  state->socketName = *name;
  state->path = SocketFolder() + "/" + *name;
  sockaddr_un address;
  if (!MakeAddress(state->path, address)) return fail(InstanceChannelError::NameTooLong);
  state->folder = OpenSocketFolder(SocketFolder(), true);
  if (!state->folder.valid()) return fail(InstanceChannelError::FolderUnusable);

  // The lock decides who owns the name; only its holder may clear a stale socket.
  const std::string lockName = "." + *name + ".lock";
  state->lock = Descriptor(openat(state->folder.get(), lockName.c_str(),
                                  O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!state->lock.valid()) return fail(InstanceChannelError::FolderUnusable);
  if (flock(state->lock.get(), LOCK_EX | LOCK_NB) != 0)
    return fail(errno == EWOULDBLOCK ? InstanceChannelError::AlreadyRunning
                                     : InstanceChannelError::SocketFailed);

  struct stat existing {};
  if (fstatat(state->folder.get(), name->c_str(), &existing, AT_SYMLINK_NOFOLLOW) == 0 &&
      S_ISSOCK(existing.st_mode)) {
    // Non-blocking, so that a listener too busy to take the probe counts as there.
    Descriptor probe(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!probe.valid()) return fail(InstanceChannelError::SocketFailed);
    if (connect(probe.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 ||
        errno == EAGAIN)
      return fail(InstanceChannelError::AlreadyRunning);  // a listener that takes no lock
    if (errno == ECONNREFUSED) unlinkat(state->folder.get(), name->c_str(), 0);
  }

  state->listening = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  state->stop = Descriptor(eventfd(0, EFD_CLOEXEC));
  if (!state->listening.valid() || !state->stop.valid())
    return fail(InstanceChannelError::SocketFailed);
  if (bind(state->listening.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) !=
      0)
    return fail(InstanceChannelError::SocketFailed);
  if (listen(state->listening.get(), SOMAXCONN) != 0) {
    unlinkat(state->folder.get(), name->c_str(), 0);
    return fail(InstanceChannelError::SocketFailed);
  }
  try {
    state->thread = std::thread([raw = state.get()] { raw->Run(); });
  } catch (const std::system_error&) {
    unlinkat(state->folder.get(), name->c_str(), 0);
    return fail(InstanceChannelError::SocketFailed);
  }
  return std::unique_ptr<InstanceListener>(new InstanceListener(std::move(state)));
}

InstanceListener::InstanceListener(std::unique_ptr<State> state) : state_(std::move(state)) {}

InstanceListener::~InstanceListener() {
  const std::uint64_t one = 1;
  while (write(state_->stop.get(), &one, sizeof(one)) < 0 && errno == EINTR) {
  }
  state_->thread.join();
  // Removed while the lock is still held, so that no new instance's socket is taken
  // away; the lock file stays, as removing it would let two holders exist.
  unlinkat(state_->folder.get(), state_->socketName.c_str(), 0);
}

const std::string& InstanceListener::SocketPath() const {
  return state_->path;
}

}  // namespace vglobal
