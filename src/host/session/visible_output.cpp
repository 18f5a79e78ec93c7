// Text is made visible piece by piece, as it comes.
#include "host/session/visible_output.h"

#include "common/values/text.h"

namespace chartproject {

VisibleOutput::Buffer::int_type VisibleOutput::Buffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  const char byte = traits_type::to_char_type(character);
  return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
}

std::streamsize VisibleOutput::Buffer::xsputn(const char* text, std::streamsize size) {
  std::string piece = std::move(pending_);
  piece.append(text, static_cast<std::size_t>(size));
  pending_.clear();
  if (!piece.empty() && (piece.back() == '\r' || piece.back() == '\xC2')) {
    pending_ = piece.back();
    piece.pop_back();
  }
  target_ << VisibleLines(piece);
  return target_ ? size : 0;
}

int VisibleOutput::Buffer::sync() {
  if (!pending_.empty()) target_ << VisibleLines(pending_);
  pending_.clear();
  target_.flush();
  return target_ ? 0 : -1;
}

void RestartLine(std::ostream& out) {
  out.flush();
  auto* const visible = dynamic_cast<VisibleOutput*>(&out);
  (visible != nullptr ? visible->buffer_.Target() : out) << '\r';
}

}  // namespace chartproject
