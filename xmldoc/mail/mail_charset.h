#pragma once

#include <cstddef>
#include <string_view>

namespace tarvo {

/// How the bytes of a code page form characters.
enum class CharacterForm { SingleByte, Utf8, ShiftJis, DoubleByte, Gb18030 };

/// The form of the charset of this name, in any letter case; SingleByte for names it does not know.
/// Known are those of UTF-8 and of the code pages 932 ("shift_jis"), 936 ("gb2312", "gbk"), 949
/// ("ks_c_5601-1987", "euc-kr") and 950 ("big5"), also as "windows-932", "cp932", and "gb18030".
CharacterForm CharacterFormOf(std::string_view charset);

/// The number of bytes of the first character of a text, which is not empty. 1 for a byte that
/// begins no character, or one whose other bytes are missing.
std::size_t CharacterSize(std::string_view text, CharacterForm form);

}  // namespace tarvo
