#pragma once

#include <winsock2.h>

#include <vector>

#include "tests/servers/server_commands.h"

namespace tarvo::sample {

/// The TCP port of a sample server, on the loopback address. It needs no thread: the window hears
/// of each caller by a message and hands it on.
class ServerPort {
 public:
  /// `window` gets the message `accepted` for each caller and then calls `Accept`.
  ServerPort(unsigned short port, HWND window, UINT accepted)
      : port_(port), window_(window), accepted_(accepted) {}
  ~ServerPort() { Close(); }
  ServerPort(const ServerPort&) = delete;
  ServerPort& operator=(const ServerPort&) = delete;

  PortState State() const { return state_; }

  /// Listens and takes every caller. False when another process listens there.
  bool Answer();
  /// Callers are refused from now on.
  void Close();
  /// Listens without ever taking a caller, and fills the queue of the waiting itself, so that the
  /// connect of anybody else gets no answer. False when another process listens there.
  bool Hang();
  /// Takes one waiting caller and lets go of it again.
  void Accept();

 private:
  bool Listen(int backlog);
  bool JoinOwnQueue();

  unsigned short port_;
  HWND window_;
  UINT accepted_;
  PortState state_ = PortState::Closed;
  SOCKET listener_ = INVALID_SOCKET;
  std::vector<SOCKET> waiting_;
};

}  // namespace tarvo::sample
