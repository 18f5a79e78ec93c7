// One connection, one request at a time, driven in slices so that the caller can end a wait.
#include "backends/curl/curl_poster.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "common/values/text.h"

namespace chartproject {
namespace {

constexpr int kSlice = 50;                   // milliseconds
constexpr std::size_t kMostText = 300;       // of an answer that is shown
constexpr std::size_t kMostAnswer = 65'536;  // of an answer that is read, and of its head
constexpr long kConnectSeconds = 10;
constexpr long kSilentSeconds = 30;
constexpr long kSlowest = 100;  // bytes a second, either way
constexpr long kMostSeconds = 300;
constexpr long kMostRedirects = 3;

struct EasyEnd {
  void operator()(CURL* easy) const noexcept { curl_easy_cleanup(easy); }
};
struct MultiEnd {
  void operator()(CURLM* multi) const noexcept { curl_multi_cleanup(multi); }
};
struct ListEnd {
  void operator()(curl_slist* list) const noexcept { curl_slist_free_all(list); }
};

/// What a server answered so far.
struct Answer {
  std::string text;
  std::string reason;  ///< of the status line
  std::size_t received = 0;
  std::size_t head = 0;
  bool announcedEnd = false;  ///< the server closes the connection
};

std::size_t TakeBody(char* bytes, std::size_t size, std::size_t count, void* target) {
  Answer& answer = *static_cast<Answer*>(target);
  const std::size_t length = size * count;
  answer.received += length;
  if (answer.text.size() < kMostText) answer.text.append(bytes, std::min(length, kMostText - answer.text.size()));
  return answer.received > kMostAnswer ? 0 : length;
}

std::size_t TakeHead(char* bytes, std::size_t size, std::size_t count, void* target) {
  Answer& answer = *static_cast<Answer*>(target);
  const std::size_t length = size * count;
  const std::string_view line(bytes, length);
  answer.head += length;
  if (line.starts_with("HTTP/")) {
    constexpr std::size_t kBeforeReason = std::string_view("HTTP/1.1 200 ").size();
    answer.reason = line.size() > kBeforeReason ? line.substr(kBeforeReason, kMostText) : std::string_view();
    answer.announcedEnd = line.starts_with("HTTP/1.0");
  }
  if (ToUpperAscii(line).starts_with("CONNECTION: CLOSE")) answer.announcedEnd = true;
  return answer.head > kMostAnswer ? 0 : length;
}

/// As one line without anything invisible.
std::string Shown(std::string text) {
  for (char& c : text) {
    if (c == '\r' || c == '\n' || c == '\t') c = ' ';
  }
  return VisibleText(Trim(text));
}

PostResult OfStatus(long status, bool empty) {
  switch (status) {
    case 204:
      return PostResult::kTaken;
    case 401:
    case 403:
    case 407:
      return PostResult::kTokenRefused;
    case 408:
    case 429:
      return PostResult::kServerBusy;
    case 413:
      return PostResult::kTooLarge;
    default:
      // A page of a server that is something else comes with a success, too.
      if (status < 300) return status >= 200 && empty ? PostResult::kTaken : PostResult::kNotADatabase;
      if (status < 400) return PostResult::kRedirects;
      return status < 500 ? PostResult::kRefused : PostResult::kServerBusy;
  }
}

PostResult OfFailure(CURLcode code, long status) {
  switch (code) {
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
    case CURLE_SSL_CERTPROBLEM:
      return PostResult::kCertificate;
    case CURLE_TOO_MANY_REDIRECTS:
      return PostResult::kRedirects;
    case CURLE_UNSUPPORTED_PROTOCOL:  // of a redirection, or of an answer that is not HTTP
      return status >= 300 ? PostResult::kRedirects : PostResult::kNotADatabase;
    case CURLE_WRITE_ERROR:
    case CURLE_WEIRD_SERVER_REPLY:
      return PostResult::kNotADatabase;
    default:
      return PostResult::kNotReached;
  }
}

class CurlPoster : public LinePoster {
 public:
  CurlPoster(const PostAddress& address, const PostSecurity& security)
      : address_(address), easy_(curl_easy_init()), multi_(curl_multi_init()) {
    if (!easy_ || !multi_) throw std::bad_alloc();
    SetUp(security);
  }

  [[nodiscard]] const std::string& Server() const override { return address_.server; }
  [[nodiscard]] const std::string& Address() const override { return address_.url; }

  [[nodiscard]] PostAnswer Post(std::string_view lines, const std::function<bool()>& goOn) override {
    answer_ = {};
    error_.fill('\0');
    Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(lines.size()));
    Set(CURLOPT_POSTFIELDS, lines.data());
    curl_multi_add_handle(multi_.get(), easy_.get());
    const auto code = Perform(goOn);
    const PostAnswer answer = code ? Judge(*code) : PostAnswer{.result = PostResult::kGivenUp};
    if (!code) announcedEnd_ = true;  // by us
    curl_multi_remove_handle(multi_.get(), easy_.get());
    return answer;
  }

 private:
  template <typename Value>
  void Set(CURLoption option, Value value) {
    if (curl_easy_setopt(easy_.get(), option, value) != CURLE_OK) {
      throw std::runtime_error("libcurl lacks option " + std::to_string(option));
    }
  }

  void SetUp(const PostSecurity& security) {
    Set(CURLOPT_URL, address_.url.c_str());
    Set(CURLOPT_PROTOCOLS_STR, address_.encrypted ? "https" : "http");
    Set(CURLOPT_REDIR_PROTOCOLS_STR, address_.encrypted ? "https" : "http,https");
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(CURLOPT_MAXREDIRS, kMostRedirects);
    Set(CURLOPT_POSTREDIR, static_cast<long>(CURL_REDIR_POST_ALL));
    Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_QUICK_EXIT, 1L);
    Set(CURLOPT_TCP_KEEPALIVE, 1L);
    Set(CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    Set(CURLOPT_LOW_SPEED_LIMIT, kSlowest);
    Set(CURLOPT_LOW_SPEED_TIME, kSilentSeconds);
    Set(CURLOPT_TIMEOUT, kMostSeconds);
    Set(CURLOPT_USERAGENT, "chartproject");
    Set(CURLOPT_POST, 1L);
    Set(CURLOPT_WRITEFUNCTION, TakeBody);
    Set(CURLOPT_WRITEDATA, static_cast<void*>(&answer_));
    Set(CURLOPT_HEADERFUNCTION, TakeHead);
    Set(CURLOPT_HEADERDATA, static_cast<void*>(&answer_));
    Set(CURLOPT_ERRORBUFFER, error_.data());
    if (!security.certificates.empty()) Set(CURLOPT_CAINFO, security.certificates.c_str());
    if (!security.clientCertificate.empty()) Set(CURLOPT_SSLCERT, security.clientCertificate.c_str());
    if (!security.clientKey.empty()) Set(CURLOPT_SSLKEY, security.clientKey.c_str());
    AddHeader("Expect:");
    AddHeader("Content-Type: text/plain; charset=utf-8");
    Authorize(security.token);
    Set(CURLOPT_HTTPHEADER, headers_.get());
  }

  void Authorize(const std::string& token) {
    constexpr std::string_view kBasic = "Basic ";
    if (token.empty()) return;
    if (token.starts_with(kBasic)) {
      Set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC));
      Set(CURLOPT_USERPWD, token.c_str() + kBasic.size());
      return;
    }
    const bool named = token.starts_with("Bearer ") || token.starts_with("Token ");
    AddHeader("Authorization: " + (named ? token : "Token " + token));
  }

  void AddHeader(const std::string& line) {
    curl_slist* const longer = curl_slist_append(headers_.get(), line.c_str());
    if (longer == nullptr) throw std::bad_alloc();
    (void)headers_.release();
    headers_.reset(longer);
  }

  /// Nothing when the caller did not want to wait.
  std::optional<CURLcode> Perform(const std::function<bool()>& goOn) {
    for (int running = 1; running > 0;) {
      if (curl_multi_perform(multi_.get(), &running) != CURLM_OK) return CURLE_FAILED_INIT;
      if (running == 0) break;
      if (!goOn()) return std::nullopt;
      curl_multi_poll(multi_.get(), nullptr, 0, kSlice, nullptr);
    }
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
    return message != nullptr && message->msg == CURLMSG_DONE ? message->data.result : CURLE_FAILED_INIT;
  }

  PostAnswer Judge(CURLcode code) {
    PostAnswer answer;
    long status = 0;
    long connections = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(easy_.get(), CURLINFO_NUM_CONNECTS, &connections);
    answer.status = static_cast<int>(status);
    const bool tooLong = code == CURLE_WRITE_ERROR && status >= 300;
    if (code == CURLE_OK || tooLong) {
      answer.result = OfStatus(status, answer_.received == 0);
      answer.text = Shown(answer_.text.empty() ? answer_.reason : answer_.text);
      answer.mayHaveDied = status >= 502 && status <= 504;
    } else {
      answer.result = OfFailure(code, status);
      const bool answered = code == CURLE_WRITE_ERROR && !answer_.text.empty();
      const char* const words = error_.front() != '\0' ? error_.data() : curl_easy_strerror(code);
      answer.text = Shown(answered ? answer_.text : words);
      answer.mayHaveDied = true;
    }
    if (connected_ && !announcedEnd_ && (connections > 0 || answer.mayHaveDied)) ++breaks_;
    connected_ = true;
    announcedEnd_ = answer_.announcedEnd;
    answer.breaks = breaks_;
    return answer;
  }

  PostAddress address_;
  Answer answer_;
  std::array<char, CURL_ERROR_SIZE> error_{};
  std::unique_ptr<curl_slist, ListEnd> headers_;
  std::unique_ptr<CURL, EasyEnd> easy_;
  std::unique_ptr<CURLM, MultiEnd> multi_;
  bool connected_ = false;
  bool announcedEnd_ = false;
  std::int64_t breaks_ = 0;
};

}  // namespace

std::unique_ptr<LinePoster> MakeCurlPoster(const PostAddress& address, const PostSecurity& security) {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (ready != CURLE_OK) throw std::runtime_error(curl_easy_strerror(ready));
  return std::make_unique<CurlPoster>(address, security);
}

}  // namespace chartproject
