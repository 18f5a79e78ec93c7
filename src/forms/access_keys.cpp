// Buttons choose first because they are pressed most; then check boxes, then the labels of fields;
// what is there only during a recording takes what is left, so that no key of a field depends on it.
#include "forms/access_keys.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>
#include <vector>

#include "forms/form.h"

namespace chartproject {

namespace {

bool IsPlain(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 && static_cast<unsigned char>(c) < 0x80;
}

char UpperCase(char c) {
  return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

/// Places of the letters that a caption could mark, the best first: those that begin a word, then others, then digits.
std::vector<std::size_t> Candidates(const std::string& caption) {
  std::array<std::vector<std::size_t>, 3> ranked;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (!IsPlain(caption[i])) continue;
    const bool wordStart = i == 0 || caption[i - 1] == ' ';
    ranked[std::isdigit(static_cast<unsigned char>(caption[i])) != 0 ? 2U : wordStart ? 0U : 1U].push_back(i);
  }
  for (const std::size_t rank : {1U, 2U}) ranked[0].insert(ranked[0].end(), ranked[rank].begin(), ranked[rank].end());
  return ranked[0];
}

/// Gives each caption a different letter; earlier captions choose first.
class Letters {
 public:
  /// Takes a letter for a caption that marks it itself.
  void Keep(char letter) { owners_[letter] = nullptr; }

  /// Finds a letter for a caption; a caption that has its letter already moves to another one where that helps.
  void Give(const Control& control) {
    std::set<char> tried;
    (void)Find(control, tried);
  }

  /// Gives a caption a letter that nobody has; where it has no such letter it gets none.
  void GiveFree(const Control& control) {
    for (const std::size_t place : Candidates(control.Caption())) {
      if (!owners_.try_emplace(UpperCase(control.Caption()[place]), &control).second) continue;
      places_[&control] = place;
      return;
    }
  }

  /// The place in its caption of each letter that was given.
  [[nodiscard]] const std::map<const Control*, std::size_t>& Places() const noexcept { return places_; }

 private:
  bool Find(const Control& control, std::set<char>& tried) {
    for (const bool mayMove : {false, true}) {
      for (const std::size_t place : Candidates(control.Caption())) {
        const char letter = UpperCase(control.Caption()[place]);
        const auto owner = owners_.find(letter);
        const bool free = owner == owners_.end();
        if (!free && (!mayMove || owner->second == nullptr || !tried.insert(letter).second)) continue;
        if (!free && !Find(*owner->second, tried)) continue;
        owners_[letter] = &control;
        places_[&control] = place;
        return true;
      }
    }
    return false;
  }

  std::map<char, const Control*> owners_;  ///< null for a letter that a caption marks itself
  std::map<const Control*, std::size_t> places_;
};

/// A control beside a progress bar is there only while the fields are locked.
bool BesideProgress(const Form& form, const Control& control) {
  return control.Container() != nullptr && std::ranges::any_of(form.Controls(), [&control](const Control* other) {
           return other->TypeName() == "ProgressBar" && other->Container() == control.Container();
         });
}

constexpr int kLastRank = 3;  ///< of those that get a letter

int Rank(const Form& form, const Control& control) {
  if (control.TypeName() == "CommandButton" && BesideProgress(form, control)) return kLastRank;
  if (control.TypeName() == "CommandButton") return 0;
  if (control.TypeName() == "CheckBox") return 1;
  return FieldOf(form, control) != nullptr ? 2 : kLastRank + 1;
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
  if (label.TypeName() != "Label" && label.TypeName() != "Frame") return nullptr;
  const auto& controls = form.Controls();
  const Control* first = nullptr;
  for (auto next = std::ranges::find(controls, &label); next != controls.end(); ++next) {
    if (*next == &label) continue;
    if (!(*next)->TabStop() || (*next)->HasCaption()) break;
    if ((*next)->Visible()) return *next;
    if (first == nullptr) first = *next;
  }
  return first;
}

std::map<const Control*, std::string> CaptionsWithAccessKeys(const Form& form) {
  std::map<const Control*, std::string> captions;
  Letters letters;
  for (const Control* control : form.Controls()) {
    if (!control->HasCaption()) continue;
    if (const auto letter = AccessLetter(control->Caption())) {
      captions[control] = control->Caption();
      letters.Keep(*letter);
    }
  }
  for (int rank = 0; rank <= kLastRank; ++rank) {
    for (const Control* control : form.Controls()) {
      if (!control->HasCaption() || captions.contains(control) || Rank(form, *control) != rank) continue;
      if (rank == kLastRank) {
        letters.GiveFree(*control);
      } else {
        letters.Give(*control);
      }
    }
  }
  for (const auto& [control, place] : letters.Places()) {
    captions[control] = std::string(control->Caption()).insert(place, 1, '&');
  }
  return captions;
}

}  // namespace chartproject
