// A form with a control of every kind, through the translation once and twice.
#include "common/form_translation.h"

#include <gmock/gmock.h>

#include "common/environment/environment.h"
#include "common/error_log.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/item_controls.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

class TranslationTest : public testing::Test {
 protected:
  TranslationTest() { environment.language = Language::kEnglish; }

  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  Form form{fakes.forms, "frmTest", MakeHandlerErrorReporter(environment)};
};

/// A control of any type name, with a caption, and message numbers in its tag and its tool tip.
struct AnyControl : Control {
  AnyControl(Form& form, const char* type, const char* tag, const char* toolTip) : Control(form, type, "c") {
    SetCaption("designed");
    SetTag(tag);
    SetToolTipText(toolTip);
  }
  bool HasCaption() const noexcept override { return true; }
  std::string Texts() const { return Caption() + "|" + ToolTipText(); }
};

TEST_F(TranslationTest, TagGivesTheCaptionAndTheToolTipItsOwn) {
  form.SetTag("1014");
  for (const char* type : {"Label", "CommandButton", "CheckBox", "OptionButton", "Frame"}) {
    AnyControl control(form, type, "1010", "1011");
    environment.language = Language::kEnglish;
    TranslateForm(form, environment);
    EXPECT_EQ(control.Texts(), "&Ok|Ok (Alt+O)") << type;
    environment.language = Language::kSpanish;  // a second pass finds the tag again, but no number in the tool tip
    TranslateForm(form, environment);
    EXPECT_EQ(control.Texts(), "&Aceptar|Ok (Alt+O)") << type;
  }
  EXPECT_EQ(form.Caption(), "Adquirir parámetro");
}

TEST_F(TranslationTest, SomeTypesHaveOnlyAToolTip) {
  for (const char* type : {"PictureBox", "UpDown", "Image", "ListBox"}) {
    AnyControl control(form, type, "1010", "1067");
    TranslateForm(form, environment);
    EXPECT_EQ(control.Texts(), "designed|Print chart") << type;
  }
}

TEST_F(TranslationTest, MissingPropertiesArePassedOver) {
  ComboBox combo(form, "cbo");
  RichTextBox rich(form, "rtf");
  const AnyControl impostor(form, "Toolbar", "1010", "1019");  // no items at all
  const AnyControl last(form, "Label", "1010", "1019");
  for (Control* control : std::initializer_list<Control*>{&combo, &rich}) {
    control->SetTag("1010");
    control->SetToolTipText("1019");
  }
  rich.SetText("1005");
  TranslateForm(form, environment);
  EXPECT_EQ(combo.ToolTipText() + rich.ToolTipText(), "EventEvent");
  EXPECT_EQ(rich.Text(), "File Name");
  EXPECT_EQ(last.Caption(), "&Ok") << "the walk goes on";
}

TEST_F(TranslationTest, OtherTypesTakeTheIdAsItStands) {
  const AnyControl slider(form, "Slider", "2065", "1066 units");
  const AnyControl zero(form, "Timer", "zero", "-1066");
  TextBox bare(form, "txt");  // a number, but no caption to put its text into
  bare.SetTag("2065");
  bare.SetToolTipText("3065");
  environment.language = Language::kSpanish;
  TranslateForm(form, environment);
  EXPECT_EQ(slider.Texts(), "Value out of range !|Imprimir");
  EXPECT_EQ(zero.Texts(), "designed|-1066");
  EXPECT_EQ(bare.ToolTipText(), "¡Valor fuera de rango!");
}

TEST_F(TranslationTest, ItemsAreTranslatedByTheirControlsRule) {
  const std::tuple<const char*, const char*, const char*> cases[] = {{"TabStrip", "&Ok", "Print chart"},
                                                                     {"Toolbar", "1066", "Print chart"},
                                                                     {"ListView", "&Ok", "1067"},
                                                                     {"StatusBar", "1066", "Print chart"},
                                                                     {"SSTab", "Print", "1067"}};
  for (const auto& [type, caption, toolTip] : cases) {
    ItemsControl control(form, type, "items");
    control.Items() = {{"", "designed", "plain"}, {"1010", "1066", "1067"}};
    TranslateForm(form, environment);
    EXPECT_EQ(control.Items()[0].caption + control.Items()[0].toolTipText, "designedplain") << type;
    EXPECT_EQ(control.Items()[1].caption, caption) << type;
    EXPECT_EQ(control.Items()[1].toolTipText, toolTip) << type;
  }
  Menu menu(form, "mnu");
  menu.SetTag("1010");
  menu.SetCaption("1066");
  TranslateForm(form, environment);
  EXPECT_EQ(menu.Caption(), "Print");
}

TEST_F(TranslationTest, WhatIsNoMessageNumberStays) {
  for (const char* tag : {"", "abc", "1101", "999", "40000", "-5", "1e9", "32767"}) {
    const AnyControl label(form, "Label", tag, tag);
    TranslateForm(form, environment);
    EXPECT_EQ(label.Texts(), "designed|" + std::string(tag));
  }
  EXPECT_TRUE(fakes.dialogs.boxes.empty());
}

}  // namespace
}  // namespace chartproject
