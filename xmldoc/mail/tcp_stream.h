#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// How a call on a connection ended.
enum class StreamOutcome {
  Done,
  TimedOut,  ///< Not in the time given.
  Closed,    ///< The other side has closed the connection.
  Failed,    ///< The network or the name service failed.
};

/// One connection. Destroying it closes it. Times are milliseconds from the call on.
class TcpStream {
 public:
  virtual ~TcpStream() = default;
  /// Hands over all the bytes. Unless that is done, a part may have been, and nothing more can be
  /// sent; what the other side has said before can still be received.
  virtual StreamOutcome Send(std::string_view bytes, std::uint32_t milliseconds) = 0;
  /// Waits until something has come, and appends it: at least one byte when Done. A time of 0 takes
  /// what has come already.
  virtual StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) = 0;
};

/// Makes connections. Its streams do not outlive it. Times are milliseconds from the call on.
class TcpConnector {
 public:
  virtual ~TcpConnector() = default;
  /// The addresses of a machine given by name or address, as numbers, in the order in which they
  /// are to be tried: at least one when `outcome` is Done, otherwise none. Unknown names are
  /// Failed.
  virtual std::vector<std::string> AddressesOf(const std::string& host, std::uint32_t milliseconds,
                                               StreamOutcome& outcome) = 0;
  /// A connection to a port (1 to 65535) of such an address; none unless `outcome` is Done.
  virtual std::unique_ptr<TcpStream> Connect(const std::string& address, int port,
                                             std::uint32_t milliseconds,
                                             StreamOutcome& outcome) = 0;
};

}  // namespace tarvo
