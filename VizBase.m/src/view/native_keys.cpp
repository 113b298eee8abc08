#include "native_keys.h"

#include <QKeyEvent>
#include <array>

namespace ZelVizBase
{

namespace
{

/// `count` keys in a row have codes in a row.
struct KeyRange {
    int firstKey;
    int count;
    HPS::KeyboardCode firstCode;
};

constexpr std::array ranges{
    KeyRange{Qt::Key_A, 26, 0x41},         KeyRange{Qt::Key_0, 10, 0x30},
    KeyRange{Qt::Key_F1, 24, 0x70},        KeyRange{Qt::Key_Space, 1, 0x20},
    KeyRange{Qt::Key_Escape, 1, 0x1B},     KeyRange{Qt::Key_Tab, 1, 0x09},
    KeyRange{Qt::Key_Backtab, 1, 0x09},    KeyRange{Qt::Key_Backspace, 1, 0x08},
    KeyRange{Qt::Key_Return, 1, 0x0D},     KeyRange{Qt::Key_Enter, 1, 0x0D},
    KeyRange{Qt::Key_Insert, 1, 0x2D},     KeyRange{Qt::Key_Delete, 1, 0x2E},
    KeyRange{Qt::Key_Pause, 1, 0x13},      KeyRange{Qt::Key_Print, 1, 0x2C},
    KeyRange{Qt::Key_Home, 1, 0x24},       KeyRange{Qt::Key_End, 1, 0x23},
    KeyRange{Qt::Key_Left, 4, 0x25},                                         // left, up, right, down
    KeyRange{Qt::Key_PageUp, 2, 0x21},     KeyRange{Qt::Key_Shift, 2, 0x10}, // Shift and Control
    KeyRange{Qt::Key_Meta, 1, 0x5B},       KeyRange{Qt::Key_Alt, 1, 0x12},
    KeyRange{Qt::Key_CapsLock, 1, 0x14},   KeyRange{Qt::Key_NumLock, 1, 0x90},
    KeyRange{Qt::Key_ScrollLock, 1, 0x91}, KeyRange{Qt::Key_Menu, 1, 0x5D},
    KeyRange{Qt::Key_Asterisk, 1, 0x6A},   KeyRange{Qt::Key_Plus, 1, 0xBB},
    KeyRange{Qt::Key_Comma, 1, 0xBC},      KeyRange{Qt::Key_Minus, 1, 0xBD},
    KeyRange{Qt::Key_Period, 1, 0xBE},     KeyRange{Qt::Key_Slash, 1, 0xBF},
};

} // namespace

HPS::KeyboardCode keyCode(QKeyEvent const& event)
{
#ifdef Q_OS_WIN
    return event.nativeVirtualKey();
#else
    int const key = event.key();
    for (KeyRange const& range : ranges) {
        if (key < range.firstKey || key >= range.firstKey + range.count) continue;
        auto const offset = static_cast<HPS::KeyboardCode>(key - range.firstKey);
        return range.firstCode + offset;
    }
    return 0;
#endif
}

} // namespace ZelVizBase
