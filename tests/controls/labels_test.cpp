#include <algorithm>
#include <memory>

#include "Controls.h"
#include "controls/ControlTest.h"
#include "simulator/controls/Drawing.h"

namespace {

bool isDirty(const BaseWnd::BaseWindow& label) { return ::GetUpdateRect(label.GetWnd(), nullptr, FALSE) != 0; }

constexpr std::uint32_t kGreen = 0x0ac81e;
constexpr COLORREF kGreenColor = RGB(0x0a, 0xc8, 0x1e);

class LabelTest : public ControlTest {
 protected:
  Pixels pictureOf(const AppWnd::Label& label) { return picture(label.GetWnd()); }

  // The rows that have something on them, from a picture of that width.
  static std::vector<std::size_t> inkedRows(const Pixels& pixels, std::size_t width) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row * width < pixels.size(); ++row) {
      const auto first = pixels.begin() + static_cast<std::ptrdiff_t>(row * width);
      if (std::any_of(first, first + static_cast<std::ptrdiff_t>(width), [&](auto pixel) { return pixel != pixels.front(); })) {
        rows.push_back(row);
      }
    }
    return rows;
  }

  static std::size_t linesOf(const Pixels& pixels, std::size_t width) {
    const auto rows = inkedRows(pixels, width);
    std::size_t lines = rows.empty() ? 0 : 1;
    for (std::size_t i = 1; i < rows.size(); ++i) lines += rows[i] != rows[i - 1] + 1 ? 1 : 0;
    return lines;
  }

  const qzstd::Rect line{10, 20, 200, 24};
  const qzstd::Rect block{10, 20, 200, 80};
  // No letter reaches below its line: there is a row of ground between two lines.
  const qzstd::Text longText{
      L"one more we can see as a man can or as no one ever saw a zoo or a sea, as we are now so are we seen "
      L"once more as never a man was"};
};

TEST_F(LabelTest, ShowsItsTextWhichIsTheWindows) {
  const qzstd::Text text{L"printer"};
  AppWnd::Label label(line, &text);
  AppWnd::Label empty(line, nullptr);
  ASSERT_TRUE(label.Create(parent()));
  ASSERT_TRUE(empty.Create(parent()));
  EXPECT_EQ(textOf(label.GetWnd()), L"printer");
  EXPECT_EQ(textOf(empty.GetWnd()), L"");
  EXPECT_EQ(linesOf(pictureOf(empty), 200), 0U);
  EXPECT_GE(inkedRows(pictureOf(label), 200).size(), 6U);
}

TEST_F(LabelTest, TextThatChangesIsDrawnAnew) {
  const qzstd::Text text{L"printer"};
  AppWnd::Label label(line, &text);
  ASSERT_TRUE(label.Create(parent()));
  const auto before = pictureOf(label);
  ::ValidateRect(label.GetWnd(), nullptr);
  ::SetWindowTextW(label.GetWnd(), L"another");
  EXPECT_TRUE(isDirty(label));
  EXPECT_EQ(textOf(label.GetWnd()), L"another");
  EXPECT_NE(pictureOf(label), before);
}

TEST_F(LabelTest, LongTextIsWrappedWhereThereIsRoom) {
  AppWnd::Label low(line, &longText);
  AppWnd::Label high(block, &longText);
  ASSERT_TRUE(low.Create(parent()));
  ASSERT_TRUE(high.Create(parent()));
  EXPECT_EQ(linesOf(pictureOf(low), 200), 1U);
  EXPECT_GE(linesOf(pictureOf(high), 200), 3U);
}

TEST_F(LabelTest, WrappedTextBeginsAtTheTop) {
  const qzstd::Text text{L"seen"};
  AppWnd::Label low(line, &text);
  AppWnd::Label high(block, &text);
  ASSERT_TRUE(low.Create(parent()));
  ASSERT_TRUE(high.Create(parent()));
  EXPECT_LE(inkedRows(pictureOf(high), 200).back(), 20U);
  const auto rows = inkedRows(pictureOf(low), 200);
  EXPECT_NEAR(static_cast<double>(rows.front() + rows.back()) / 2, 12, 4) << "in the middle of one line";
}

TEST_F(LabelTest, DrawsNothingOutsideItsArea) {
  constexpr int kMargin = 8;
  for (const auto* rect : {&line, &block}) {
    AppWnd::Label label(*rect, &longText);
    ASSERT_TRUE(label.Create(parent()));
    const auto pixels = picture(label.GetWnd(), kMargin);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kUntouched),
              (rect->width + 2 * kMargin) * (rect->height + 2 * kMargin) - rect->width * rect->height);
  }
}

TEST_F(LabelTest, FontThatWasSetIsUsed) {
  const qzstd::Text text{L"printer"};
  AppWnd::Label label(block, &text);
  ASSERT_TRUE(label.Create(parent()));
  EXPECT_EQ(::SendMessageW(label.GetWnd(), WM_GETFONT, 0, 0), 0);
  const auto small = inkedRows(pictureOf(label), 200).size();
  const HFONT large = controls::font(30, true);
  ::ValidateRect(label.GetWnd(), nullptr);
  ::SendMessageW(label.GetWnd(), WM_SETFONT, reinterpret_cast<WPARAM>(large), 0);
  EXPECT_TRUE(isDirty(label));
  EXPECT_GT(inkedRows(pictureOf(label), 200).size(), small * 3 / 2);
  EXPECT_EQ(::SendMessageW(label.GetWnd(), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(large));
}

LRESULT CALLBACK coloringProcedure(HWND window, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (msg != WM_CTLCOLORSTATIC) return ::DefWindowProcW(window, msg, wParam, lParam);
  ::SetTextColor(reinterpret_cast<HDC>(wParam), kGreenColor);
  return reinterpret_cast<LRESULT>(::GetStockObject(WHITE_BRUSH));
}

TEST_F(LabelTest, ParentChoosesTheColors) {
  const qzstd::Text text{L"IIIII"};
  AppWnd::Label label(block, &text);
  ASSERT_TRUE(label.Create(parent()));
  ::SendMessageW(label.GetWnd(), WM_SETFONT, reinterpret_cast<WPARAM>(controls::font(40, true)), 0);
  EXPECT_FALSE(colors(label.GetWnd()).contains(kGreen));
  const auto former = ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&coloringProcedure));
  const auto seen = colors(label.GetWnd());
  ::SetWindowLongPtrW(parent(), GWLP_WNDPROC, former);
  EXPECT_TRUE(seen.contains(kGreen));
  EXPECT_TRUE(seen.contains(0xffffff));
}

TEST_F(LabelTest, IsNoneOfTheMousesAndTheKeyboards) {
  AppWnd::Label label(line, nullptr);
  ASSERT_TRUE(label.Create(parent()));
  EXPECT_EQ(::SendMessageW(label.GetWnd(), WM_NCHITTEST, 0, 0), HTTRANSPARENT);
  EXPECT_EQ(::SendMessageW(label.GetWnd(), WM_GETDLGCODE, 0, 0), DLGC_STATIC);
  EXPECT_EQ(::GetNextDlgTabItem(parent(), nullptr, FALSE), nullptr);
}

TEST_F(LabelTest, DisabledIsPaler) {
  const auto contrast = [&](const AppWnd::Label& label) {
    const auto pixels = pictureOf(label);
    std::uint64_t sum = 0;
    for (const auto pixel : pixels) {
      sum += static_cast<std::uint64_t>(std::abs(static_cast<int>(pixel & 0xff) - static_cast<int>(pixels.front() & 0xff)));
      sum += static_cast<std::uint64_t>(std::abs(static_cast<int>(pixel >> 16) - static_cast<int>(pixels.front() >> 16)));
    }
    return sum;
  };
  const qzstd::Text text{L"12345"};
  AppWnd::Label label(line, &text);
  AppWnd::LabelNum number(line, &text);
  AppWnd::LabelPath path(line, &text);
  for (AppWnd::Label* each : {&label, static_cast<AppWnd::Label*>(&number), static_cast<AppWnd::Label*>(&path)}) {
    ASSERT_TRUE(each->Create(parent()));
    const auto enabled = contrast(*each);
    ::ValidateRect(each->GetWnd(), nullptr);
    each->Disable();
    EXPECT_TRUE(isDirty(*each));
    EXPECT_LT(contrast(*each), enabled * 3 / 4);
    each->Enable();
    EXPECT_EQ(contrast(*each), enabled);
  }
}

TEST_F(LabelTest, KindsLookDifferent) {
  const qzstd::Text text{L"7"};
  AppWnd::Label label(line, &text);
  AppWnd::LabelNum number(line, &text);
  AppWnd::LabelPath path(line, &text);
  ASSERT_TRUE(label.Create(parent()) && number.Create(parent()) && path.Create(parent()));
  EXPECT_NE(pictureOf(label), pictureOf(number));
  EXPECT_NE(pictureOf(label), pictureOf(path));
  EXPECT_NE(pictureOf(number), pictureOf(path));
}

TEST_F(LabelTest, MessagesWithoutAWindowAreHarmless) {
  AppWnd::Label label(line, nullptr);
  for (const unsigned msg : {WM_PAINT, WM_GETDLGCODE, WM_NCHITTEST, WM_SETTEXT, WM_SETFONT, WM_ENABLE})
    label.RunProc(msg, 0, 0);
  label.Destroy();
  EXPECT_EQ(label.GetWnd(), nullptr);
}

TEST_F(LabelTest, DrawsInAnyArea) {
  AppWnd::Label label(line, &longText);
  AppWnd::LabelNum number(line, &longText);
  AppWnd::LabelPath path(line, &longText);
  for (AppWnd::Label* each : {&label, static_cast<AppWnd::Label*>(&number), static_cast<AppWnd::Label*>(&path)}) {
    ASSERT_TRUE(each->Create(parent()));
    for (const int side : {0, 1, 7, 50}) {
      ::SetWindowPos(each->GetWnd(), nullptr, 0, 0, side, side, SWP_NOMOVE | SWP_NOZORDER);
      EXPECT_EQ(pictureOf(*each).size(), static_cast<std::size_t>(side * side));
    }
  }
}

class LabelNumTest : public LabelTest {
 protected:
  static void tell(AppWnd::LabelNum& label) {
    label.SetNum(-12);
    label.SetBgColor(kGreenColor);
    label.SetEnable(false);
  }
};

TEST_F(LabelNumTest, ShowsItsNumberOnItsGround) {
  AppWnd::LabelNum label(line, nullptr);
  ASSERT_TRUE(label.Create(parent()));
  ::ValidateRect(label.GetWnd(), nullptr);
  label.SetNum(2147483647);
  EXPECT_TRUE(isDirty(label));
  EXPECT_EQ(textOf(label.GetWnd()), L"2147483647");
  EXPECT_FALSE(colors(label.GetWnd()).contains(kGreen));
  ::ValidateRect(label.GetWnd(), nullptr);
  label.SetBgColor(kGreenColor);
  EXPECT_TRUE(isDirty(label));
  EXPECT_TRUE(colors(label.GetWnd()).contains(kGreen));
  label.SetEnable(false);
  EXPECT_FALSE(label.IsEnable());
  EXPECT_FALSE(colors(label.GetWnd()).contains(kGreen));
}

TEST_F(LabelNumTest, KeepsWhatItWasToldWithoutAWindow) {
  AppWnd::LabelNum told(line, nullptr);
  ASSERT_TRUE(told.Create(parent()));
  tell(told);
  AppWnd::LabelNum early(line, nullptr);
  tell(early);
  ASSERT_TRUE(early.Create(parent()));
  EXPECT_EQ(pictureOf(early), pictureOf(told));
  EXPECT_EQ(textOf(early.GetWnd()), L"-12");
  EXPECT_FALSE(early.IsEnable());
  AppWnd::LabelNum late(line, nullptr);
  ASSERT_TRUE(late.Create(parent()));
  late.Destroy();
  tell(late);
  ASSERT_TRUE(late.Create(parent()));
  EXPECT_EQ(pictureOf(late), pictureOf(told));
}

class LabelPathTest : public LabelTest {
 protected:
  static void tell(AppWnd::LabelPath& label) {
    label.SetPath(L"C:\\b.bin");
    label.SetBgColor(kGreenColor);
    label.SetBrdColor(RGB(1, 2, 3));
  }

  const qzstd::Text path{L"C:\\Users\\Somebody\\Documents\\Firmware\\firmware.bin"};
};

TEST_F(LabelPathTest, KeepsTheWholePathOfWhichItShowsAPart) {
  AppWnd::LabelPath label(line, &path);
  ASSERT_TRUE(label.Create(parent()));
  EXPECT_EQ(label.GetPath(), path.text);
  EXPECT_EQ(textOf(label.GetWnd()), path.text);
  const auto before = pictureOf(label);
  label.SetPath(L"C:\\Users\\Somebody\\Pictures\\firmware.bin");
  EXPECT_EQ(pictureOf(label), before) << "the same beginning and the same name";
  ::ValidateRect(label.GetWnd(), nullptr);
  label.SetPath(L"C:\\Users\\Somebody\\Documents\\Firmware\\filmware.bin");
  EXPECT_TRUE(isDirty(label));
  EXPECT_NE(pictureOf(label), before) << "another name";
}

TEST_F(LabelPathTest, PathMayComeByTheWindowsText) {
  AppWnd::LabelPath label(line, nullptr);
  ASSERT_TRUE(label.Create(parent()));
  ::SetWindowTextW(label.GetWnd(), L"D:\\a.bin");
  EXPECT_EQ(label.GetPath(), L"D:\\a.bin");
}

TEST_F(LabelPathTest, ColorsThatWereSetAreThere) {
  AppWnd::LabelPath label(line, &path);
  ASSERT_TRUE(label.Create(parent()));
  ::ValidateRect(label.GetWnd(), nullptr);
  label.SetBgColor(kGreenColor);
  EXPECT_TRUE(isDirty(label));
  EXPECT_TRUE(colors(label.GetWnd()).contains(kGreen));
  EXPECT_FALSE(colors(label.GetWnd()).contains(0x010203));
  ::ValidateRect(label.GetWnd(), nullptr);
  label.SetBrdColor(RGB(1, 2, 3));
  EXPECT_TRUE(isDirty(label));
  EXPECT_TRUE(colors(label.GetWnd()).contains(0x010203));
}

TEST_F(LabelPathTest, KeepsWhatItWasToldWithoutAWindow) {
  AppWnd::LabelPath told(line, &path);
  ASSERT_TRUE(told.Create(parent()));
  tell(told);
  AppWnd::LabelPath early(line, nullptr);
  tell(early);
  EXPECT_EQ(early.GetPath(), L"C:\\b.bin");
  ASSERT_TRUE(early.Create(parent()));
  EXPECT_EQ(pictureOf(early), pictureOf(told));
  early.Destroy();
  early.SetPath(L"E:\\c.bin");
  EXPECT_EQ(early.GetPath(), L"E:\\c.bin");
}

}  // namespace
