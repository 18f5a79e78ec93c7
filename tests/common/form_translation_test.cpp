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
  combo.SetTag("1010");
  combo.SetToolTipText("1019");
  RichTextBox rich(form, "rtf");
  rich.SetTag("1010");
  rich.SetText("1005");
  rich.SetToolTipText("1085");
  AnyControl impostor(form, "Toolbar", "tlb");  // no items at all
  Label last(form, "lbl");
  last.SetTag("1046");
  TranslateForm(form, environment);
  EXPECT_EQ(combo.ToolTipText(), "Event");
  EXPECT_EQ(rich.Text(), "File Name");
  EXPECT_EQ(rich.ToolTipText(), "Browse");
  EXPECT_EQ(last.Caption(), "Grid") << "the walk goes on";
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
  EXPECT_EQ(slider.Caption(), "Value out of range !");
  EXPECT_EQ(slider.ToolTipText(), "Imprimir");
  EXPECT_EQ(zero.Caption(), "designed");
  EXPECT_EQ(zero.ToolTipText(), "-1066");
  EXPECT_EQ(bare.ToolTipText(), "¡Valor fuera de rango!");
}

TEST_F(TranslationTest, ItemsAreTranslatedByTheirControlsRule) {
  struct Case {
    const char* type;
    ControlItem expected;
  };
  const ControlItem designed{"1010", "1066", "1067"};
  const Case cases[]{
      {"TabStrip", {"1010", "&Ok", "Print chart"}}, {"Toolbar", {"1010", "1066", "Print chart"}},
      {"ListView", {"1010", "&Ok", "1067"}},        {"StatusBar", {"1010", "1066", "Print chart"}},
      {"SSTab", {"1010", "Print", "1067"}},
  };
  for (const Case& c : cases) {
    ItemsControl control(form, c.type, "items");
    control.Items() = {{"", "designed", "plain"}, designed};
    TranslateForm(form, environment);
    const ControlItem& plain = control.Items()[0];
    const ControlItem& item = control.Items()[1];
    EXPECT_EQ(plain.caption + plain.toolTipText, "designedplain") << c.type;
    EXPECT_EQ(item.caption, c.expected.caption) << c.type;
    EXPECT_EQ(item.toolTipText, c.expected.toolTipText) << c.type;
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
