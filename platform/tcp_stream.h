#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvo {

/// How a call on a connection ended.
enum class StreamOutcome {
  Done,
  TimedOut,  ///< Not in the time given; the connection is of no more use.
  Closed,    ///< The other side has closed the connection.
  Failed,    ///< The network or the name service failed.
};

/// One connection. Destroying it closes it. Times are milliseconds from the call on.
class TcpStream {
 public:
  virtual ~TcpStream() = default;
  /// Hands over all the bytes.
  virtual StreamOutcome Send(std::string_view bytes, std::uint32_t milliseconds) = 0;
  /// Waits until something has come, and appends it: at least one byte when Done.
  virtual StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) = 0;
};

/// Makes connections.
class TcpConnector {
 public:
  virtual ~TcpConnector() = default;
  /// A connection to that port (1 to 65535) of a machine given by name or address, tried at each of
  /// its addresses in turn; none unless `outcome` is Done.
  virtual std::unique_ptr<TcpStream> Connect(const std::string& host, int port,
                                             std::uint32_t milliseconds,
                                             StreamOutcome& outcome) = 0;
};

}  // namespace tarvo
