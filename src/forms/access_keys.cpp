// Buttons choose first, for they are pressed most; then check boxes, then the labels of fields.
#include "forms/access_keys.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "forms/form.h"

namespace chartproject {

namespace {

bool IsPlain(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 && static_cast<unsigned char>(c) < 0x80;
}

char UpperCase(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

/// The first free letter, those that begin a word before the others, a digit only where no letter is left.
std::optional<std::size_t> FreeLetter(const std::string& caption, const std::set<char>& taken) {
  std::optional<std::size_t> best;
  int bestRank = 3;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (!IsPlain(caption[i]) || taken.contains(UpperCase(caption[i]))) continue;
    const bool wordStart = i == 0 || caption[i - 1] == ' ';
    const int rank = std::isdigit(static_cast<unsigned char>(caption[i])) != 0 ? 2 : wordStart ? 0 : 1;
    if (rank >= bestRank) continue;
    best = i;
    bestRank = rank;
  }
  return best;
}

int Rank(const Form& form, const Control& control) {
  if (control.TypeName() == "CommandButton") return 0;
  if (control.TypeName() == "CheckBox") return 1;
  return FieldOf(form, control) != nullptr ? 2 : 3;
}

}  // namespace

std::optional<char> AccessLetter(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return UpperCase(caption[i + 1]);
    ++i;
  }
  return std::nullopt;
}

const Control* FieldOf(const Form& form, const Control& label) {
  if (label.TypeName() != "Label") return nullptr;
  const auto& controls = form.Controls();
  auto next = std::find(controls.begin(), controls.end(), &label);
  if (next == controls.end() || ++next == controls.end()) return nullptr;
  return (*next)->TabStop() && !(*next)->HasCaption() ? *next : nullptr;
}

std::map<const Control*, std::string> CaptionsWithAccessKeys(const Form& form) {
  std::map<const Control*, std::string> captions;
  std::set<char> taken;
  for (const Control* control : form.Controls()) {
    if (!control->HasCaption()) continue;
    if (const auto letter = AccessLetter(control->Caption())) {
      captions[control] = control->Caption();
      taken.insert(*letter);
    }
  }
  for (int rank = 0; rank <= 2; ++rank) {
    for (const Control* control : form.Controls()) {
      if (!control->HasCaption() || captions.contains(control) || Rank(form, *control) != rank) continue;
      std::string caption = control->Caption();
      const auto place = FreeLetter(caption, taken);
      if (!place) continue;
      taken.insert(UpperCase(caption[*place]));
      captions[control] = caption.insert(*place, 1, '&');
    }
  }
  return captions;
}

}  // namespace chartproject
