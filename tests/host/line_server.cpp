// One request a connection.
#include "host/line_server.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <utility>

namespace chartproject {

LineServer::LineServer() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof at;
  bind(socket_, reinterpret_cast<sockaddr*>(&at), size);
  listen(socket_, 8);
  getsockname(socket_, reinterpret_cast<sockaddr*>(&at), &size);
  port_ = ntohs(at.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

LineServer::~LineServer() {
  shutdown(socket_, SHUT_RDWR);  // ends the wait for a connection
  thread_.join();
  close(socket_);
}

void LineServer::Answer(const std::string& answer) {
  const std::lock_guard lock(mutex_);
  answers_.push_back(answer);
}

std::string LineServer::Taken() {
  const std::lock_guard lock(mutex_);
  return std::exchange(taken_, "");
}

void LineServer::Serve() {
  for (int connection = 0; (connection = accept(socket_, nullptr, nullptr)) >= 0; close(connection)) Reply(connection);
}

void LineServer::Reply(int connection) {
  constexpr std::string_view kLength = "Content-Length: ";
  constexpr std::string_view kToken = "Authorization: ";
  std::string request;
  std::size_t head = std::string::npos;
  std::size_t length = 0;
  for (char buffer[4096]; head == std::string::npos || request.size() < head + 4 + length;) {
    const ssize_t count = recv(connection, buffer, sizeof buffer, 0);
    if (count <= 0) return;
    request.append(buffer, static_cast<std::size_t>(count));
    if (head != std::string::npos || (head = request.find("\r\n\r\n")) == std::string::npos) continue;
    length = std::stoul(request.substr(request.find(kLength) + kLength.size()));
  }
  const std::lock_guard lock(mutex_);
  std::string answer = "204";
  if (!answers_.empty()) answer = std::exchange(answers_.front(), {}), answers_.pop_front();
  const std::size_t token = request.find(kToken);
  taken_ += request.substr(0, request.find('\r')) + " -> " + answer + "\n" +
            (token < head ? request.substr(token, request.find('\r', token) - token) + "\n" : "") +
            request.substr(head + 4);
  std::string text = answer.size() > 4 ? answer.substr(4) : "";
  std::string reply = "HTTP/1.1 " + answer.substr(0, 3) + " Said\r\nConnection: close\r\n";
  if (text.starts_with('@')) reply += "Location: " + std::exchange(text, "").substr(1) + "\r\n";
  reply += "Content-Length: " + std::to_string(text.size()) + "\r\n\r\n" + text;
  (void)send(connection, reply.data(), reply.size(), MSG_NOSIGNAL);
}

}  // namespace chartproject
