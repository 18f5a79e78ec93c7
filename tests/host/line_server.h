// A database of these tests: takes what is posted to a loopback port, and answers as it is told.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace chartproject {

class LineServer {
 public:
  LineServer();
  ~LineServer();
  LineServer(const LineServer&) = delete;
  LineServer& operator=(const LineServer&) = delete;

  [[nodiscard]] std::string Port() const { return std::to_string(port_); }
  /// "401 no such token", "307 @/other": the next answers; 204 once they are used up.
  void Answer(const std::string& answer);
  /// What came since: a line for each request, then its token and its lines.
  [[nodiscard]] std::string Taken();

 private:
  void Serve();
  void Reply(int connection);

  int socket_;
  int port_ = 0;
  std::mutex mutex_;
  std::deque<std::string> answers_;
  std::string taken_;
  std::thread thread_;
};

}  // namespace chartproject
