#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "AppWindow.h"

/// The control library's classes: what an application puts into its windows.
///
/// A control is made without a window; `Create` makes the window, as a child of `parent`, at the rectangle that the constructor
/// was given (and whose address is kept), and is true when there is one. Every member of a control class itself may be called
/// before `Create` and after the window is gone: the object keeps what it was told. (Those of the bases act on the window
/// alone.) All members belong to the thread of the window.
///
/// A control tells its parent by `WM_COMMAND`: the low word is its identifier (0 where the constructor takes none), the high
/// word what happened, `lParam` the control's window. What happened is named as for the system's own controls: buttons
/// `BN_CLICKED`; edits `EN_CHANGE`, `EN_SETFOCUS`, `EN_KILLFOCUS`, only when a person did it; boxes `CBN_SELCHANGE`. A scroll
/// bar sends `WM_VSCROLL` and a slider `WM_HSCROLL`, with `SB_THUMBTRACK` while it is held, `SB_THUMBPOSITION` after other
/// moves and `SB_ENDSCROLL` when it is let go, the position in the high word of `wParam`.
///
/// A text may be null where a pointer is taken: none. Texts are copied. Colors are the platform's (`RGB`).
namespace AppWnd {

/// A push button; base of all buttons. The space bar and Enter press it as well as the mouse.
class APPCOMM_API BtnBase : public CtrlWnd {
 public:
  BtnBase(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnBase() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// Whether the button is on: a check box or a radio button that is set, the page of a row of buttons that is shown. A click
  /// turns a check box over and sets a radio button, and changes nothing in the others.
  bool GetClick() const;
  void SetClick(bool on);
  /// A button that is not enabled is drawn pale, and takes neither the mouse nor the keyboard.
  bool GetEnable() const;
  void SetEnable(bool enable);
  void SetBgColor(COLORREF color);
  void SetText(const qzstd::Text& text);
  /// Moves the button to `top` pixels below the upper edge of its parent.
  void SetTop(std::int32_t top);

 protected:
  struct Look;
  struct State;

  /// For the buttons that are declared here: how they look and what they keep is in the control library.
  BtnBase(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text, const Look& look);
  State& state() { return *m_state; }
  const State& state() const { return *m_state; }

 private:
  const std::unique_ptr<State> m_state;
};

/// A plus sign before the caption.
class APPCOMM_API BtnAddPrinter : public BtnBase {
 public:
  BtnAddPrinter(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnAddPrinter() override;
};

/// A frame, no filling.
class APPCOMM_API BtnBorder : public BtnBase {
 public:
  BtnBorder(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnBorder() override;
};

/// A gear.
class APPCOMM_API BtnCfg : public BtnBase {
 public:
  BtnCfg(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnCfg() override;
};

/// A check box with its caption.
class APPCOMM_API BtnCheck : public BtnBase {
 public:
  BtnCheck(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnCheck() override;
};

/// The cross that closes a window.
class APPCOMM_API BtnCls : public BtnBase {
 public:
  BtnCls(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnCls() override;
};

/// The header of a part of a window that opens and shuts: an arrow that points down while the button is on.
class APPCOMM_API BtnExpand : public BtnBase {
 public:
  BtnExpand(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnExpand() override;

  /// As that of `BtnBase`.
  void SetText(const qzstd::Text& text);
};

/// Filled from one shade of its color to another.
class APPCOMM_API BtnGradual : public BtnBase {
 public:
  BtnGradual(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnGradual() override;
};

/// A caption only, as a link.
class APPCOMM_API BtnLabel : public BtnBase {
 public:
  BtnLabel(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnLabel() override;

  /// The color of the caption.
  void SetColor(COLORREF color);
  void Settx(const qzstd::Text& text);
};

/// The dash that makes a window small.
class APPCOMM_API BtnMin : public BtnBase {
 public:
  BtnMin(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnMin() override;
};

/// Filled: the one button of a page that does its job.
class APPCOMM_API BtnNew : public BtnBase {
 public:
  BtnNew(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnNew() override;
};

/// A radio button with its caption. Which others go off is for the parent to say.
class APPCOMM_API BtnRadio : public BtnBase {
 public:
  BtnRadio(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnRadio() override;
};

/// A radio button in the shape of a pill, as for the pages of a window.
class APPCOMM_API BtnRadioRound : public BtnBase {
 public:
  BtnRadioRound(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnRadioRound() override;
};

/// An arrow that goes round.
class APPCOMM_API BtnRefresh : public BtnBase {
 public:
  BtnRefresh(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnRefresh() override;
};

/// `BtnRefresh`, which can be gray: it says that what it refreshes is old, and can be pressed all the same.
class APPCOMM_API BtnRefreshState : public BtnBase {
 public:
  BtnRefreshState(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnRefreshState() override;

  /// Whether it is drawn gray.
  bool GetGray() const;
  void SetGray(bool gray);
};

/// An arrow to the left.
class APPCOMM_API BtnReturn : public BtnBase {
 public:
  BtnReturn(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnReturn() override;
};

/// An arrow to the right in a circle.
class APPCOMM_API BtnRoundArrow : public BtnBase {
 public:
  BtnRoundArrow(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnRoundArrow() override;
};

/// An entry of a list of settings.
class APPCOMM_API BtnSet : public BtnBase {
 public:
  BtnSet(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnSet() override;

  /// The color of the caption.
  void SetColor(COLORREF color);
};

/// The waves of a wireless network, which can be gray: there is none, and the button can be pressed all the same.
class APPCOMM_API BtnSetWifi : public BtnBase {
 public:
  BtnSetWifi(std::int32_t id, const qzstd::Rect& rect, const qzstd::Text* text);
  ~BtnSetWifi() override;

  /// Whether it is drawn gray.
  bool GetGray() const;
  void SetGray(bool gray);
};

/// A box with a list that drops down. The arrow keys and the first letters choose as well as the mouse; Escape shuts the list.
class APPCOMM_API ComBox : public CtrlWnd {
 public:
  ComBox(std::int32_t id, const qzstd::Rect& rect);
  ~ComBox() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// Adds an entry after the others.
  void Append(const qzstd::Text& text);
  /// Of all entries, and of the choice.
  void Clear();
  /// The chosen entry, counted from 0; -1 when there is none.
  std::int32_t GetCurSel() const;
  /// -1, or an index that there is not, chooses none.
  void SetCurSel(std::int32_t index);
  /// The color of the texts.
  void SetColor(COLORREF color);
  /// Where in the dropped list its scroll bar is; all zero: at its right edge.
  void SetScrollRect(const qzstd::Rect& rect);
  /// The height of an entry, in pixels, at least 1.
  void SetWndItem(std::int32_t height);
  /// Where the list drops down, in the parent's client area; all zero: below the box, or above it
  /// where the screen ends, as high as its entries, at most 8.
  void SetWndRect(const qzstd::Rect& rect);

 private:
  struct State;
  const std::unique_ptr<State> m_state;
};

/// A line of text that can be edited; base of all edits. The usual keys: arrows, Home, End, with Shift to select, Backspace,
/// Delete, Ctrl with A, C, X and V.
class APPCOMM_API EditBase : public CtrlWnd {
 public:
  EditBase(const qzstd::Rect& rect, const qzstd::Text* text);
  ~EditBase() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// The caret is the system's: there is one per thread. The edit makes it when it gets the keyboard.
  void CreateCaret();
  void DestroyCaret();
  void ShowCaret();
  void HideCaret();
  /// Before the character `index`, counted in UTF-16 units from 0, or at the end; selects nothing.
  void SetCaretPos(std::int32_t index);

  /// The text as it is edited, also while it is not valid.
  std::wstring GetWstr() const;
  /// Whatever the text is: what a person may type is the business of the derived class. The caret goes to its end.
  void SetWstr(const std::wstring& text);
  /// The color of the text.
  void SetColor(COLORREF color);
  void SetEnable();
  void SetDisable();
  /// Gives the edit the keyboard.
  void SetFocus();

 protected:
  struct Kind;
  struct State;

  /// For the edits that are declared here: what they take and what they keep is in the control library.
  EditBase(const qzstd::Rect& rect, const qzstd::Text* text, const Kind& kind);
  State& state() { return *m_state; }
  const State& state() const { return *m_state; }

 private:
  const std::unique_ptr<State> m_state;
};

/// A threshold: takes digits only, three of them.
class APPCOMM_API EditAlarm : public EditBase {
 public:
  EditAlarm(const qzstd::Rect& rect, const qzstd::Text* text);
  ~EditAlarm() override;
};

/// An IPv4 address: takes digits and dots, and is framed red while it is not valid and the keyboard is elsewhere.
class APPCOMM_API EditCIP : public EditBase {
 public:
  EditCIP(const qzstd::Rect& rect, const qzstd::Text* text);
  ~EditCIP() override;

  /// Four numbers of 0 to 255 with dots between them, unless `SetIpValid` said otherwise after the last change of the text.
  bool GetIpValid() const;
  /// For what the text alone cannot show, such as an address that another printer has.
  void SetIpValid(bool valid);
};

/// A password: shown as dots, and neither copied nor cut.
class APPCOMM_API EditCPwd : public EditBase {
 public:
  EditCPwd(const qzstd::Rect& rect, const qzstd::Text* text);
  ~EditCPwd() override;

  /// Empties the edit, and overwrites what its memory held.
  void Clear();
};

/// A text; base of the labels. `SetWindowTextW` changes it, `WM_SETFONT` its font, and its color is the one that the parent
/// sets when it is asked by `WM_CTLCOLORSTATIC`. Where the rectangle has room for two lines or more, a long text is wrapped
/// from the top; what does not fit is cut with dots.
class APPCOMM_API Label : public CtrlWnd {
 public:
  Label(const qzstd::Rect& rect, const qzstd::Text* text);
  ~Label() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

 protected:
  struct State;

  /// For the labels that are declared here: what they keep is in the control library.
  State& state() { return *m_state; }
  const State& state() const { return *m_state; }

 private:
  const std::unique_ptr<State> m_state;
};

/// A number on a ground of its own, as a count.
class APPCOMM_API LabelNum : public Label {
 public:
  LabelNum(const qzstd::Rect& rect, const qzstd::Text* text);
  ~LabelNum() override;

  /// The color of the ground.
  void SetBgColor(COLORREF color);
  /// Drawn pale when not enabled.
  void SetEnable(bool enable);
  void SetNum(std::int32_t number);
};

/// The path of a file, in a frame. What does not fit is left out in the middle, never the file's name.
class APPCOMM_API LabelPath : public Label {
 public:
  LabelPath(const qzstd::Rect& rect, const qzstd::Text* text);
  ~LabelPath() override;

  /// The whole path, also where it is shown cut.
  std::wstring GetPath() const;
  void SetPath(const std::wstring& path);
  /// The colors of the ground and of the frame.
  void SetBgColor(COLORREF color);
  void SetBrdColor(COLORREF color);
};

/// A vertical scroll bar. `SBM_SETSCROLLINFO` and `SBM_SETPOS` set it, as they do the system's.
class APPCOMM_API Scroll : public CtrlWnd {
 public:
  explicit Scroll(const qzstd::Rect& rect);
  ~Scroll() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// The length of what is scrolled and of what is seen of it, and how much is hidden above; any unit. At first 100, 10, 0.
  std::int32_t GetMax() const;
  std::int32_t GetPage() const;
  std::int32_t GetPos() const;
  /// The thumb's place below the bar's upper edge and its length, in pixels.
  std::int32_t GetThumbPos() const;
  std::int32_t GetThumbSize() const;
  void SetBgColor(COLORREF color);
  /// The colors of the thumb: while it is held, with the mouse over it, else.
  void SetMouseDownColor(COLORREF color);
  void SetMouseMoveColor(COLORREF color);
  void SetMouseUpColor(COLORREF color);

 private:
  struct State;
  const std::unique_ptr<State> m_state;
};

/// A horizontal slider from 0 to 100. The arrow keys move it as well as the mouse.
class APPCOMM_API Slider : public CtrlWnd {
 public:
  Slider(std::int32_t id, const qzstd::Rect& rect);
  ~Slider() override;

  bool Create(HWND parent) override;
  __int64 RunProc(unsigned msg, unsigned __int64 wParam, __int64 lParam) override;

  /// Whether it takes the mouse and the keyboard, as `EnableWindow` says.
  bool GetEnable() const;
  /// Whether a person is moving it just now.
  bool GetMove() const;
  std::int32_t GetPos() const;
  /// What lies outside 0 to 100 is taken as the nearer end.
  void SetPos(std::int32_t position);

 private:
  struct State;
  const std::unique_ptr<State> m_state;
};

}  // namespace AppWnd
