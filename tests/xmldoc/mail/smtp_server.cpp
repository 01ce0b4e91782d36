#include "tests/xmldoc/mail/smtp_server.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace tarvo {
namespace {

constexpr int kStartMilliseconds = 30000;

}  // namespace

SmtpServer::SmtpServer(const std::string& mode, const std::string& step) {
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe(in.data()) != 0 || pipe(out.data()) != 0) throw std::runtime_error("no pipe");
  process_ = fork();
  if (process_ == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
    // Debian's own one, which finds Debian's packages, whatever else is on the path.
    execl("/usr/bin/python3", "python3", TARVO_SMTP_SERVER, mode.c_str(), step.c_str(), nullptr);
    _exit(127);
  }
  close(in[0]);
  close(out[1]);
  toServer_ = in[1];
  fromServer_ = out[0];
  port_ = std::atoi(ReadLine().c_str());
  if (port_ == 0) throw std::runtime_error("the mail server did not start");
}

SmtpServer::~SmtpServer() {
  close(toServer_);  // the server ends when its input does
  close(fromServer_);
  waitpid(process_, nullptr, 0);
}

std::string SmtpServer::NextEvent() { return ReadLine(); }

std::string SmtpServer::ReadLine() {
  std::string line;
  for (;;) {
    pollfd one{fromServer_, POLLIN, 0};
    char c = 0;
    if (poll(&one, 1, kStartMilliseconds) <= 0 || read(fromServer_, &c, 1) != 1) return {};
    if (c == '\n') return line;
    line += c;
  }
}

}  // namespace tarvo
