// The channel between a program of the suite that is asked to start and the
// instance of it that already runs: the running instance listens on a socket named
// after its program, and a starter that finds it there hands it its arguments
// instead of starting a second instance.
//
// Where: a Unix-domain stream socket, $XDG_RUNTIME_DIR/arvenis/<program file name>.
// Without XDG_RUNTIME_DIR (or with one that is not an absolute path) the folder is
// /tmp/arvenis-<uid>. The folder is made with mode 0700; a folder that is a symbolic
// link, not a folder, or belongs to another user is never used, and one of ours with
// a wider mode is narrowed to 0700. Beside each socket a lock file .<name>.lock is
// held while the instance listens, so that two instances starting at the same moment
// cannot both take the name.
//
// Who: both sides check the other's user id (SO_PEERCRED) and talk only to their own
// user: arguments never go to, or come from, another user's program.
//
// What: one message per connection, all integers little-endian:
//   uint32 type, uint32 length, then `length` bytes.
// - type 4096 (kInstanceArgumentsMessage): the arguments as UTF-16LE text with its
//   terminating zero (length even, at least 2, last unit zero);
// - type 0 (kInstanceActivateMessage): no arguments, length 0.
// Both ask the instance to come to the front; that, and what it does with the
// arguments, is the instance's business. A message longer than
// kMaxInstanceMessageBytes, of another type, or malformed is refused: the connection
// is closed without an answer. After the handler has taken the message, the instance
// answers one byte (1), so that a starter knows the arguments have arrived when it
// returns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "vglobal/export.h"

namespace vglobal {

inline constexpr std::uint32_t kInstanceActivateMessage = 0;
inline constexpr std::uint32_t kInstanceArgumentsMessage = 4096;
// Room for an argument text of 32,767 characters, the longest command line the suite's
// programs were ever given, with its terminator.
inline constexpr std::size_t kMaxInstanceMessageBytes = 64 * 1024;

struct InstanceMessage {
  std::uint32_t type = kInstanceActivateMessage;
  std::wstring text;  // the arguments, up to their first zero; empty for activation
};

enum class InstanceChannelError {
  None = 0,
  BadProgramName,  // empty, ".", "..", starting with '.', or holding '/' or a zero
  NameTooLong,     // the socket's path would not fit a socket address
  FolderUnusable,  // the socket folder cannot be made, or is not a private folder of ours
  AlreadyRunning,  // another instance holds the name
  SocketFailed,    // the system refused a socket, a lock or a thread
};

// A short English description of an error, for messages and logs.
VGLOBAL_EXPORT const char* Describe(InstanceChannelError error);

// The socket path of `programName`'s instance (UTF-8), or empty when the name cannot
// have one. Makes nothing.
VGLOBAL_EXPORT std::string InstanceSocketPath(std::wstring_view programName);

// The starter's side. Whether a running instance of `programName` took the message:
// `arguments` (type 4096, sent as given) or, when null, a request to come to the front
// (type 0).
enum class InstanceDelivery {
  Delivered,   // the instance has the message
  NotRunning,  // no instance of ours took it: no socket, a stale one, another user's,
               // one that hung up without taking the message, or arguments too long
               // for a message (a newly started instance gets them on its command line)
};
// Waits at most about five seconds for the instance to take the message; an instance
// that listens but does not answer in time counts as Delivered (it exists, and a
// second instance must not be started beside it). Any thread.
VGLOBAL_EXPORT InstanceDelivery SendToRunningInstance(std::wstring_view programName,
                                                      const wchar_t* arguments);

// The running instance's side: listens on the program's socket while it lives.
//
// - Start takes the name: it makes the folder, takes the lock, removes a socket file
//   that nobody answers on (left by an instance that ended without cleaning up),
//   and refuses with AlreadyRunning while another instance answers on it.
// - The handler runs on the listener's own thread, one message at a time. It must
//   return promptly and must not wait for the user-interface thread: a Qt program
//   posts the message to its GUI thread (QMetaObject::invokeMethod with a queued
//   connection) and returns. A starter waits for the handler to return.
// - A connection is read for at most two seconds; a peer that sends less is dropped
//   and the listener goes on with the next one.
// - Destruction stops the thread (a handler in progress finishes first), removes the
//   socket file and releases the name. Not from within the handler.
class VGLOBAL_EXPORT InstanceListener {
 public:
  using Handler = std::function<void(const InstanceMessage& message)>;

  // Null on failure, with the reason in *error when given.
  static std::unique_ptr<InstanceListener> Start(std::wstring_view programName, Handler handler,
                                                 InstanceChannelError* error = nullptr);
  ~InstanceListener();
  InstanceListener(const InstanceListener&) = delete;
  InstanceListener& operator=(const InstanceListener&) = delete;

  // The socket's path (UTF-8).
  const std::string& SocketPath() const;

 private:
  struct State;
  explicit InstanceListener(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace vglobal
