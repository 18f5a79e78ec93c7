// Parsed by the library that will use it, so that nothing is understood in two ways.
#include "backends/curl/post_address.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "common/values/text.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr std::size_t kLongestAddress = 2000;

struct UrlEnd {
  void operator()(CURLU* url) const noexcept { curl_url_cleanup(url); }
};
using Url = std::unique_ptr<CURLU, UrlEnd>;

std::optional<std::string> Part(const Url& url, CURLUPart part) {
  char* text = nullptr;
  if (curl_url_get(url.get(), part, &text, 0) != CURLUE_OK) return std::nullopt;
  const std::unique_ptr<char, void (*)(void*)> owner(text, curl_free);
  return std::string(text);
}

[[noreturn]] void Refuse(const std::string& text, const std::string& reason) {
  throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishAddress, {VisibleText(text), reason});
}

/// Calls `take` with name and value of each part of a query.
template <typename Take>
void ForEachKey(std::string_view query, const Take& take) {
  while (!query.empty()) {
    const std::size_t end = std::min(query.find('&'), query.size());
    const std::string_view part = query.substr(0, end);
    const std::size_t equals = std::min(part.find('='), part.size());
    take(part.substr(0, equals), part.substr(std::min(equals + 1, part.size())));
    query.remove_prefix(std::min(end + 1, query.size()));
  }
}

void Append(const Url& url, const std::string& text) {
  curl_url_set(url.get(), CURLUPART_QUERY, text.c_str(), CURLU_APPENDQUERY | CURLU_URLENCODE);
}

}  // namespace

PostAddress MakePostAddress(const std::string& text, const std::string& database) {
  const Url url(curl_url());
  if (text.size() > kLongestAddress) Refuse(text.substr(0, 40) + "...", std::to_string(text.size()) + " bytes");
  const CURLUcode code = curl_url_set(url.get(), CURLUPART_URL, text.c_str(), CURLU_NON_SUPPORT_SCHEME);
  // Before anything is shown of it.
  if (Part(url, CURLUPART_USER) || Part(url, CURLUPART_PASSWORD)) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishSecretInUrl);
  }
  if (code != CURLUE_OK) Refuse(text, curl_url_strerror(code));
  const std::string scheme = Part(url, CURLUPART_SCHEME).value_or("");
  if (scheme != "http" && scheme != "https") Refuse(text, scheme + "://");
  bool precision = false;
  ForEachKey(Part(url, CURLUPART_QUERY).value_or(""), [&](std::string_view key, std::string_view value) {
    constexpr std::array<std::string_view, 4> kSecrets{"p", "u", "password", "token"};
    if (std::ranges::find(kSecrets, key) != kSecrets.end()) {
      throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishSecretInUrl);
    }
    if (key != "precision") return;
    precision = true;
    if (value == "ms" || value == "millisecond") return;
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kPublishPrecision, {VisibleText(text)});
  });
  curl_url_set(url.get(), CURLUPART_FRAGMENT, nullptr, 0);
  if (Part(url, CURLUPART_PATH).value_or("/") == "/") curl_url_set(url.get(), CURLUPART_PATH, "/write", 0);
  if (!precision) Append(url, "precision=ms");
  if (!database.empty()) Append(url, "db=" + database);
  PostAddress address;
  address.encrypted = scheme == "https";
  address.url = Part(url, CURLUPART_URL).value_or("");
  address.server = address.url.substr(0, address.url.find('?'));
  return address;
}

}  // namespace chartproject
