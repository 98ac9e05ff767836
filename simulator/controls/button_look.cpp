#include "simulator/controls/ButtonLook.h"

#include <algorithm>

#include "simulator/controls/ControlWindow.h"
#include "simulator/controls/Drawing.h"

namespace controls {
namespace {

constexpr int kIconSize = 16;
constexpr int kPadding = 10;
constexpr int kNarrowPadding = 6;  // of what has no ground: only the ring that says where the keyboard is keeps its distance
constexpr int kGap = 8;

bool isSet(std::uint32_t flags, Flag flag) { return (flags & flag) != 0; }

bool isFilled(const ButtonLook& look) { return look.ground == Ground::kFilled || look.ground == Ground::kGradual; }

bool hasFrame(const ButtonLook& look) { return look.ground == Ground::kFace || look.ground == Ground::kFrame; }

struct Colors {
  COLORREF ground = 0;  // what the caption stands on
  COLORREF frame = 0;
  COLORREF ink = 0;
  COLORREF mark = 0;
  bool filled = false;
};

// A pill and a filled button are filled with the accent while they are on; the others get a tint of it.
COLORREF groundAtRest(const ButtonFace& face, COLORREF beneath) {
  const auto& look = face.look;
  if (look.round && look.onClick == OnClick::kSet && face.on) return theme::kAccent;
  const COLORREF others = look.ground == Ground::kFace ? theme::kSurface : beneath;
  const COLORREF own = face.background.value_or(isFilled(look) ? theme::kAccent : others);
  const bool tinted = face.on && look.ground != Ground::kNone;
  return tinted ? mixed(own, isFilled(look) ? theme::kText : theme::kAccent, isFilled(look) ? 35 : 14) : own;
}

COLORREF groundNow(const ButtonFace& face, std::uint32_t flags, COLORREF rest) {
  if (face.look.ground == Ground::kNone) return rest;
  const COLORREF pressing = isFilled(face.look) ? theme::kText : readableOn(rest);
  if (isSet(flags, kPressed)) return face.look.warns ? mixed(theme::kError, theme::kText, 30) : mixed(rest, pressing, 22);
  if (isSet(flags, kHovered)) return face.look.warns ? theme::kError : mixed(rest, readableOn(rest), 9);
  return rest;
}

COLORREF inkOn(const ButtonFace& face, COLORREF ground) {
  const COLORREF readable = readableOn(ground);
  if (face.ink) return *face.ink;
  // The accent is for light grounds: on others it could not be read.
  const bool accented = face.look.accented || (face.on && face.look.ground != Ground::kNone);
  return accented && readable == theme::kText ? theme::kAccent : readable;
}

COLORREF frameOn(const ButtonFace& face, std::uint32_t flags, COLORREF ground, COLORREF beneath) {
  const bool dark = readableOn(ground) != theme::kText;
  if (dark) return ground == beneath ? mixed(ground, theme::kOnAccent, 35) : ground;
  return face.on || face.look.accented || isSet(flags, kHovered) ? theme::kAccent : theme::kBorder;
}

Colors colorsOf(const ButtonFace& face, std::uint32_t flags, COLORREF beneath) {
  const bool disabled = isSet(flags, kDisabled);
  const COLORREF full = groundNow(face, flags, groundAtRest(face, beneath));
  const COLORREF ground = disabled ? mixed(full, beneath, 75) : full;
  const bool held = face.look.ground == Ground::kNone && isSet(flags, kPressed);
  const COLORREF ink = held ? mixed(inkOn(face, ground), theme::kText, 40) : inkOn(face, ground);
  const COLORREF mark = face.gray ? theme::kBorder : inkOn({.look = face.look, .on = face.on}, ground);
  const int pale = disabled ? theme::kPaleShare : 0;
  return {ground, mixed(frameOn(face, flags, full, beneath), beneath, pale), mixed(ink, ground, pale),
          mixed(mark, ground, pale), ground != beneath};
}

int radiusOf(const RECT& area, const ButtonLook& look) {
  return look.round ? std::min(area.right, area.bottom) / 2 : theme::kRadius;
}

void drawGround(HDC dc, const RECT& area, const ButtonFace& face, std::uint32_t flags, const Colors& colors) {
  const int radius = radiusOf(area, face.look);
  if (face.look.ground == Ground::kGradual) {
    const int shade = isSet(flags, kDisabled) ? 6 : 30;  // a pale caption is not to be lost in it
    fillRoundGradual(dc, area, radius, colors.ground, mixed(colors.ground, theme::kText, shade));
  } else if (hasFrame(face.look)) {
    fillRound(dc, area, radius, colors.ground, colors.frame);
  } else if (colors.filled) {
    fillRound(dc, area, radius, colors.ground, colors.ground);
  }
}

// The bar that says which entry is on.
void drawBar(HDC dc, const RECT& area, const Colors& colors) {
  const RECT bar{area.left + 2, area.top + area.bottom / 5, area.left + 5, area.bottom - area.bottom / 5};
  fillRound(dc, bar, 2, colors.ink, colors.ink);
}

RECT squareIn(const RECT& area, int size) {
  const int left = (area.left + area.right - size) / 2;
  const int top = (area.top + area.bottom - size) / 2;
  return {left, top, left + size, top + size};
}

struct Places {
  RECT mark;
  RECT caption;
  RECT end;
};

bool hasMark(const ButtonLook& look) { return look.mark != Mark::kIcon || look.icon != Icon::kNone; }

RECT markAlone(const RECT& area) {
  const int shorter = std::min(area.right, area.bottom);
  return squareIn(area, std::clamp(shorter / 2, std::min(shorter, 12), 28));
}

HFONT fontOf(const ButtonLook& look) { return font(theme::kFontHeight, look.bold); }

// The mark, a gap and the caption: in the middle of the button or from its left edge.
Places placesOf(HDC dc, const RECT& area, const ButtonFace& face) {
  const auto& look = face.look;
  if (face.text.empty() && look.centered) return {markAlone(area), {}, {}};
  const int padding = look.ground == Ground::kNone ? kNarrowPadding : kPadding;
  const int markWidth = hasMark(look) ? kIconSize + kGap : 0;
  const int endWidth = look.iconAtEnd != Icon::kNone ? kIconSize + kGap : 0;
  const int room = std::max<int>(0, area.right - 2 * padding - markWidth - endWidth);
  const int caption = std::min<int>(room, textSize(dc, face.text, fontOf(look)).cx);
  const int left = padding + (look.centered ? (room - caption) / 2 : 0);
  RECT mark = squareIn(area, kIconSize);
  ::OffsetRect(&mark, left - mark.left, 0);
  RECT end = squareIn(area, kIconSize - 4);
  ::OffsetRect(&end, area.right - padding - end.right, 0);
  return {mark, {left + markWidth, area.top, left + markWidth + (look.centered ? caption : room), area.bottom}, end};
}

void drawBox(HDC dc, const RECT& area, bool on, const Colors& mark) {
  constexpr int kBoxRadius = 4;
  fillRound(dc, area, kBoxRadius, mark.ground, mark.frame);
  if (on) drawIcon(dc, squareIn(area, kIconSize - 4), Icon::kTick, mark.ink);
}

void drawRadio(HDC dc, const RECT& area, bool on, const Colors& mark) {
  fillEllipse(dc, area, mark.ground, mark.frame);
  if (on) fillEllipse(dc, squareIn(area, 6), mark.ink, mark.ink);
}

// A box or a ring has colors of its own: it stands for the whole button.
Colors markColors(const ButtonFace& face, std::uint32_t flags, COLORREF beneath) {
  const ButtonLook asButton{.ground = face.on ? Ground::kFilled : Ground::kFace};
  Colors colors = colorsOf({.look = asButton}, flags & ~std::uint32_t{kDisabled}, theme::kSurface);
  if (face.on) colors.frame = colors.ground;
  if (isSet(flags, kDisabled)) {
    colors.ground = mixed(colors.ground, beneath, theme::kPaleShare);
    colors.frame = mixed(colors.frame, beneath, theme::kPaleShare);
  }
  return colors;
}

void drawMark(HDC dc, const RECT& area, const ButtonFace& face, std::uint32_t flags, const Colors& colors) {
  const auto& look = face.look;
  if (look.mark == Mark::kBox) return drawBox(dc, area, face.on, markColors(face, flags, colors.ground));
  if (look.mark == Mark::kRadio) return drawRadio(dc, area, face.on, markColors(face, flags, colors.ground));
  drawIcon(dc, area, face.on && look.iconWhenOn != Icon::kNone ? look.iconWhenOn : look.icon, colors.mark);
}

// A link has no ground to show what happens to it.
void drawUnderline(HDC dc, const RECT& caption, const ButtonFace& face, std::uint32_t flags, const Colors& colors) {
  const bool touched = isSet(flags, kHovered) || isSet(flags, kPressed);
  if (!touched && !face.on) return;
  const SIZE size = textSize(dc, face.text, fontOf(face.look));
  const int thickness = face.on || isSet(flags, kPressed) ? 2 : 1;
  const int top = std::min<int>((caption.top + caption.bottom + size.cy) / 2, caption.bottom - thickness);
  fill(dc, {caption.left, top, std::min(caption.right, caption.left + size.cx), top + thickness}, colors.ink);
}

}  // namespace

void drawButton(HDC dc, const RECT& area, const ButtonFace& face, std::uint32_t flags) {
  const auto& look = face.look;
  const Colors colors = colorsOf(face, flags, ::GetPixel(dc, 0, 0));
  const Places places = placesOf(dc, area, face);
  drawGround(dc, area, face, flags, colors);
  if (look.entry && face.on) drawBar(dc, area, colors);
  if (hasMark(look)) drawMark(dc, places.mark, face, flags, colors);
  drawText(dc, places.caption, face.text, colors.ink, DT_LEFT, fontOf(look));
  if (look.link) drawUnderline(dc, places.caption, face, flags, colors);
  drawIcon(dc, places.end, look.iconAtEnd, mixed(colors.ink, colors.ground, 45));
  if (isSet(flags, kFocused)) drawFocus(dc, area, radiusOf(area, look));
}

}  // namespace controls
