// A form with a control of every kind, through the translation once and twice.
#include "common/form_translation.h"

#include <gmock/gmock.h>

#include "common/environment.h"
#include "common/error_log.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "forms/item_controls.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

class TranslationTest : public testing::Test {
 protected:
  TranslationTest() { environment.languageBase = 1000; }

  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  Form form{fakes.forms, "frmTest", MakeHandlerErrorReporter(environment)};
};

/// A control of any type name, with a caption.
struct AnyControl : Control {
  using Control::Control;
  bool HasCaption() const noexcept override { return true; }
};

TEST_F(TranslationTest, TagGivesTheCaptionAndTheToolTipItsOwn) {
  form.SetTag("1014");
  for (const char* type : {"Label", "CommandButton", "CheckBox", "OptionButton", "Frame"}) {
    AnyControl control(form, type, "c");
    control.SetTag("1010");
    control.SetToolTipText("1011");
    environment.languageBase = 1000;
    TranslateForm(form, environment);
    EXPECT_EQ(control.Caption(), "&Ok") << type;
    EXPECT_EQ(control.ToolTipText(), "Ok (Alt+O)") << type;
    EXPECT_EQ(control.Tag(), "1010") << type;

    environment.languageBase = 2000;  // a second pass finds the tag again, but no number in the tool tip
    TranslateForm(form, environment);
    EXPECT_EQ(control.Caption(), "&Aceptar") << type;
    EXPECT_EQ(control.ToolTipText(), "Ok (Alt+O)") << type;
  }
  EXPECT_EQ(form.Caption(), "Adquirir parámetro");
}

TEST_F(TranslationTest, SomeTypesHaveOnlyAToolTip) {
  for (const char* type : {"PictureBox", "UpDown", "Image", "ListBox"}) {
    AnyControl control(form, type, "c");
    control.SetCaption("designed");
    control.SetTag("1010");
    control.SetToolTipText("1067");
    TranslateForm(form, environment);
    EXPECT_EQ(control.Caption(), "designed") << type;
    EXPECT_EQ(control.ToolTipText(), "Print chart") << type;
  }
}

TEST_F(TranslationTest, MissingPropertiesArePassedOver) {
  ComboBox combo(form, "cbo");
  RichTextBox rich(form, "rtf");
  AnyControl impostor(form, "Toolbar", "tlb");  // no items at all
  Label last(form, "lbl");
  for (Control* control : std::initializer_list<Control*>{&combo, &rich, &impostor, &last}) {
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
  AnyControl slider(form, "Slider", "sld");
  slider.SetTag("2065");
  slider.SetToolTipText("1066 units");
  AnyControl zero(form, "Timer", "tmr");
  zero.SetCaption("designed");
  zero.SetTag("zero");
  zero.SetToolTipText("-1066");
  TextBox bare(form, "txt");  // a number, but no caption to put its text into
  bare.SetTag("2065");
  bare.SetToolTipText("3065");
  environment.languageBase = 2000;
  TranslateForm(form, environment);
  EXPECT_EQ(slider.Caption() + "|" + slider.ToolTipText(), "Value out of range !|Imprimir");
  EXPECT_EQ(zero.Caption() + "|" + zero.ToolTipText(), "designed|-1066");
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
    const ControlItem& plain = control.Items()[0];
    const ControlItem& item = control.Items()[1];
    EXPECT_EQ(plain.caption + plain.toolTipText, "designedplain") << type;
    EXPECT_EQ(item.caption, caption) << type;
    EXPECT_EQ(item.toolTipText, toolTip) << type;
  }
  Menu menu(form, "mnu");
  menu.SetTag("1010");
  menu.SetCaption("1066");
  TranslateForm(form, environment);
  EXPECT_EQ(menu.Caption(), "Print");
}

TEST_F(TranslationTest, WhatIsNoMessageNumberStays) {
  for (const char* tag : {"", "abc", "1101", "999", "40000", "-5", "1e9", "32767"}) {
    Label label(form, "lbl");
    label.SetCaption("designed");
    label.SetTag(tag);
    label.SetToolTipText(tag);
    TranslateForm(form, environment);
    EXPECT_EQ(label.Caption(), "designed") << tag;
    EXPECT_EQ(label.ToolTipText(), tag) << tag;
  }
  EXPECT_TRUE(fakes.dialogs.boxes.empty());
}

}  // namespace
}  // namespace chartproject
