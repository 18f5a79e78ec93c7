// The native counterparts of the control types.
#pragma once

#include <string>
#include <utility>

#include "backends/win32/widgets/widget.h"

namespace chartproject::win32 {

class LabelWidget : public Widget {
 public:
  LabelWidget(Label& label, WidgetContext& context);
  /// An empty label would paint its ground over the one that shares its place.
  [[nodiscard]] bool ShouldShow() const override { return !label_.Caption().empty() && Widget::ShouldShow(); }
  void Apply(Property property) override;
  void ApplyStyle() override;
  [[nodiscard]] Size PreferredSize() const override;
  [[nodiscard]] double HeightForWidth(double width) const override;

 private:
  Label& label_;
};

class FrameWidget : public Widget {
 public:
  FrameWidget(Frame& frame, WidgetContext& context);
  [[nodiscard]] bool ShouldShow() const override { return false; }  // the form's window paints it
  [[nodiscard]] Size PreferredSize() const override;
};

class SwatchWidget : public Widget {
 public:
  SwatchWidget(PictureBox& box, WidgetContext& context);
  [[nodiscard]] bool ShouldShow() const override { return box_.HasColor() && Widget::ShouldShow(); }
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  HBRUSH Background(HDC dc) override;
  void Command(WORD code) override;

 private:
  PictureBox& box_;
  OwnedBrush brush_;
};

class ButtonWidget : public Widget {
 public:
  ButtonWidget(CommandButton& button, WidgetContext& context);
  [[nodiscard]] Size PreferredSize() const override;
  void Command(WORD code) override;

 private:
  CommandButton& button_;
};

class CheckBoxWidget : public Widget {
 public:
  CheckBoxWidget(CheckBox& box, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  void Command(WORD code) override;

 private:
  CheckBox& box_;
};

class ComboBoxWidget : public Widget {
 public:
  ComboBoxWidget(ComboBox& box, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  void Place(const RECT& place) override;
  void Command(WORD code) override;
  void DrawItem(const DRAWITEMSTRUCT& item) override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;
  bool Wheel(int notches) override;

 private:
  bool StepPassed(WPARAM key);
  void ShowList();
  void Typed(wchar_t character);
  [[nodiscard]] int Find(int after, const std::wstring& start) const;
  ComboBox& box_;
  std::wstring typed_;    ///< start of the item that the user types
  LONG lastTypedAt_ = 0;  ///< the message's time
};

class EditWidget : public Widget {
 public:
  EditWidget(TextControl& text, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  void Place(const RECT& place) override;
  void Command(WORD code) override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;

 protected:
  EditWidget(TextControl& text, WidgetContext& context, const wchar_t* windowClass, DWORD style);
  [[nodiscard]] TextControl& Text() const noexcept { return text_; }
  /// Hands a text that the user made to the control. One that was refused in a box comes back selected, so that the
  /// next key replaces it. @return false when it was refused
  bool Offer(const std::string& text);

 private:
  TextControl& text_;
  bool showing_ = false;  ///< the native text is being set: no input of the user
  int focusLosses_ = 0;
};

class RichTextWidget : public EditWidget {
 public:
  RichTextWidget(RichTextBox& text, WidgetContext& context);
  void Apply(Property property) override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;

 private:
  [[nodiscard]] int Ground() const;
  void PaintFrame() const;
};

/// Overwrites the places of its mask; everything between them stays.
class MaskWidget : public EditWidget {
 public:
  MaskWidget(MaskEdBox& text, WidgetContext& context);
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;

 private:
  [[nodiscard]] bool IsPlace(std::size_t at) const;
  [[nodiscard]] std::size_t NextPlace(std::size_t at) const;
  [[nodiscard]] std::string FullText() const;
  bool Overwrite(std::size_t at, char character);
  void Type(wchar_t character);
  void Erase(bool backwards);
  bool EraseSelection();
  bool TypedCharacter(WPARAM character);
  void Paste();
  void MoveCaret(std::size_t at);
  /// Begin and end of what is selected; both are the caret when nothing is.
  [[nodiscard]] std::pair<std::size_t, std::size_t> Selection() const;
  MaskEdBox& box_;
};

class ProgressWidget : public Widget {
 public:
  ProgressWidget(ProgressBar& bar, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;

 private:
  ProgressBar& bar_;
};

class SliderWidget : public Widget {
 public:
  SliderWidget(Slider& slider, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  void Scroll(WORD code) override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;
  bool Wheel(int notches) override;

 private:
  void Step(int by);
  Slider& slider_;
};

class ScrollBarWidget : public Widget {
 public:
  ScrollBarWidget(HScrollBar& bar, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  void Scroll(WORD code) override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;
  bool Wheel(int notches) override;

 private:
  [[nodiscard]] int Lowest() const;
  [[nodiscard]] int Highest() const;
  /// The value at a distance from the left end, and the other way round: a bar may run backwards.
  [[nodiscard]] int Mirror(int value) const;
  void MoveTo(int position);
  HScrollBar& bar_;
};

class UpDownWidget : public Widget {
 public:
  UpDownWidget(UpDown& arrows, WidgetContext& context);
  [[nodiscard]] Size PreferredSize() const override;
  LRESULT Notify(const NMHDR& header) override;
  bool Wheel(int notches) override;

 private:
  UpDown& arrows_;
};

/// Painted by the core through Canvas: its picture is kept, its overlay painted over a copy, so nothing flickers.
class DrawnWidget : public Widget {
 public:
  DrawnWidget(DrawnControl& drawn, WidgetContext& context);
  void Apply(Property property) override;
  [[nodiscard]] Size PreferredSize() const override;
  bool Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) override;
  bool Wheel(int notches) override;

 private:
  void Paint();
  void PaintPicture(HDC dc, int width, int height);
  void Draw(HDC dc, int width, int height, const std::function<void(Canvas&)>& paint);
  void MouseMoved(LPARAM data, WPARAM keys);
  [[nodiscard]] PointF PointAt(POINT dots) const;
  [[nodiscard]] MouseInput InputAt(LPARAM data, WPARAM keys, MouseButton button) const;
  void ButtonPressed(const MouseInput& input, bool twice);
  void ButtonReleased(const MouseInput& input);
  void OpenMenu(LPARAM data);
  bool KeyPressed(WPARAM virtualKey);
  DrawnControl& drawn_;
  SIZE pictureSize_{};
  double pictureScale_ = 0;  ///< another screen's scale needs other texts, even in the same size
  OwnedBitmap picture_;      ///< without the overlay; none while it is out of date
  bool tracking_ = false;    ///< the system will report when the mouse leaves
};

}  // namespace chartproject::win32
