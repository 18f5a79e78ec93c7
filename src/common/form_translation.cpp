// The walk over a form's controls, with one rule for each type name.
#include "common/form_translation.h"

#include <array>
#include <exception>
#include <string>
#include <string_view>

#include "common/environment/environment.h"
#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/item_controls.h"

namespace chartproject {

namespace {

/// One statement of the walk: an error ends it and nothing else.
template <typename Statement>
void SkipErrors(const Statement& statement) noexcept {
  try {
    statement();
  } catch (const std::exception&) {
    return;
  }
}

class FormTranslator {
 public:
  explicit FormTranslator(const Environment& environment) : environment_(environment) {}

  /// Passes `set` the text of a Portuguese message id in the component's language. Does nothing when `value` is not a
  /// number.
  template <typename Setter>
  void Replace(const std::string& value, const Setter& set) const noexcept {
    SkipErrors([&] {
      const NumberFormat& format = environment_.ports.locale.Numbers();
      if (!IsNumeric(value, format)) return;
      const int id = CheckedInteger16(ToInteger16(value, format) + RowOf(environment_.language).messageBase);
      if (const auto text = MessageById(id)) set(*text);
    });
  }

  /// Passes `set` the text with the id that a value begins with; that id already includes the language.
  template <typename Setter>
  void ReplaceById(const std::string& value, const Setter& set) const noexcept {
    SkipErrors([&] {
      const std::int16_t id = RoundToInteger16(LeadingNumber(value));
      if (const auto text = MessageById(id)) set(*text);
    });
  }

 private:
  const Environment& environment_;
};

using Rule = void (*)(const FormTranslator& translator, Control& control);

void TranslateCaptionByTag(const FormTranslator& translator, Control& control) {
  translator.Replace(control.Tag(), [&](std::string_view text) { control.SetCaption(text); });
}

void TranslateToolTip(const FormTranslator& translator, Control& control) {
  translator.Replace(control.ToolTipText(), [&](std::string_view text) { control.SetToolTipText(text); });
}

void TranslateMenu(const FormTranslator& translator, Control& control) {
  translator.Replace(control.Caption(), [&](std::string_view text) { control.SetCaption(text); });
}

void TranslateCaptioned(const FormTranslator& translator, Control& control) {
  TranslateCaptionByTag(translator, control);
  TranslateToolTip(translator, control);
}

void TranslateRichText(const FormTranslator& translator, Control& control) {
  TranslateCaptionByTag(translator, control);
  auto& box = dynamic_cast<TextControl&>(control);
  translator.Replace(box.Text(), [&](std::string_view text) { box.SetText(text); });
  TranslateToolTip(translator, control);
}

void TranslateOther(const FormTranslator& translator, Control& control) {
  translator.ReplaceById(control.Tag(), [&](std::string_view text) { control.SetCaption(text); });
  translator.ReplaceById(control.ToolTipText(), [&](std::string_view text) { control.SetToolTipText(text); });
}

template <typename Translate>
void ForEachItem(Control& control, const Translate& translate) {
  for (ControlItem& item : dynamic_cast<ItemsControl&>(control).Items()) translate(item);
}

void TranslateTabs(const FormTranslator& translator, Control& control) {
  ForEachItem(control, [&](ControlItem& tab) {
    translator.Replace(tab.tag, [&](std::string_view text) { tab.caption = text; });
    translator.Replace(tab.toolTipText, [&](std::string_view text) { tab.toolTipText = text; });
  });
}

void TranslateItemToolTips(const FormTranslator& translator, Control& control) {
  ForEachItem(control, [&](ControlItem& item) {
    translator.Replace(item.toolTipText, [&](std::string_view text) { item.toolTipText = text; });
  });
}

void TranslateColumns(const FormTranslator& translator, Control& control) {
  ForEachItem(control, [&](ControlItem& column) {
    translator.Replace(column.tag, [&](std::string_view text) { column.caption = text; });
  });
}

void TranslateTabCaptions(const FormTranslator& translator, Control& control) {
  ForEachItem(control, [&](ControlItem& tab) {
    translator.Replace(tab.caption, [&](std::string_view text) { tab.caption = text; });
  });
}

struct TypeRule {
  std::string_view typeName;
  Rule translate;
};

constexpr std::array<TypeRule, 17> kRules{{
    {"Menu", TranslateMenu},
    {"TabStrip", TranslateTabs},
    {"Toolbar", TranslateItemToolTips},
    {"ListView", TranslateColumns},
    {"StatusBar", TranslateItemToolTips},
    {"SSTab", TranslateTabCaptions},
    {"Label", TranslateCaptioned},
    {"CommandButton", TranslateCaptioned},
    {"ComboBox", TranslateCaptioned},  // the caption is skipped: it has none
    {"CheckBox", TranslateCaptioned},
    {"OptionButton", TranslateCaptioned},
    {"Frame", TranslateCaptioned},
    {"PictureBox", TranslateToolTip},
    {"UpDown", TranslateToolTip},
    {"Image", TranslateToolTip},
    {"ListBox", TranslateToolTip},
    {"RichTextBox", TranslateRichText},
}};

Rule RuleFor(std::string_view typeName) noexcept {
  for (const TypeRule& rule : kRules) {
    if (rule.typeName == typeName) return rule.translate;
  }
  return TranslateOther;
}

}  // namespace

std::string TextNumber(Text message) {
  return std::to_string(kPortugueseMessageBase + static_cast<int>(message));
}

void TranslateForm(Form& form, const Environment& environment) {
  const FormTranslator translator(environment);
  translator.Replace(form.Tag(), [&](std::string_view text) { form.SetCaption(text); });
  for (Control* control : form.Controls()) {
    SkipErrors([&] { RuleFor(control->TypeName())(translator, *control); });
  }
}

}  // namespace chartproject
