// Text as the documents and files of the program hold it: UTF-8 in memory, CR LF at line ends, letters
// compared in the ASCII range only, and never a glance at the locale.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

inline constexpr std::string_view kCrLf = "\r\n";

/// What stands between the words of a document.
inline constexpr std::string_view kBlanks = " \t\r\n";

/// A decimal digit of ASCII, whatever the locale.
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The text without the blanks and tabs at its two ends.
std::string_view trimmed(std::string_view text);

std::string upper(std::string_view text);
std::string lower(std::string_view text);

/// True when both are the same but for the case of ASCII letters.
bool sameText(std::string_view a, std::string_view b);

/// The order of names as people count: "clip 2" ahead of "clip 10", whatever the case of letters.
bool naturalLess(std::string_view a, std::string_view b);

/// True when `text` holds `part`, ASCII letters of either case being the same.
bool holdsText(std::string_view text, std::string_view part);

/// True when `text` ends in `end`, in the same way.
bool endsInText(std::string_view text, std::string_view end);

/// Every `from` replaced by `to`, left to right, what was put in not searched again.
std::string replaced(std::string_view text, std::string_view from, std::string_view to);

/// How many characters a text has. One that is no UTF-8 counts a byte a character, as Windows-1252 does.
std::size_t characterCount(std::string_view text);

/// The first `count` characters, counted in the same way.
std::string_view cutTo(std::string_view text, std::size_t count);

/// The first line of `text`, without the CR LF or LF that ends it, which `text` loses along with it.
std::string_view nextLine(std::string_view& text);

/// `text` between two quote characters (34), nothing escaped.
std::string quoted(std::string_view text);

std::string blanks(std::size_t count);

/// A field of a line whose fields are apart at commas.
struct LineField {
  std::string_view text;       ///< without the blanks around it; of one in quotes what is between them
  std::string_view toLineEnd;  ///< from its first character to the end of the line; in quotes as `text`
  bool isLast = true;          ///< no comma stands behind it
};

/// The first field of `line`, which loses it, its comma and what stands between them. One in quotes keeps the
/// commas in it, and loses the quotes.
LineField nextField(std::string_view& line);

/// All fields of a line.
std::vector<std::string> commaFields(std::string_view line);

/// The kind of a file by its name: the last three characters, or what follows a full stop inside those
/// three, in capitals. So "a.jpeg" gives "PEG" and "a.au" gives "AU".
std::string extensionOf(std::string_view name);

bool isUtf8(std::string_view bytes);

/// One line's bytes as UTF-8: what is not valid UTF-8 is read as Windows-1252.
std::string lineFromBytes(std::string_view bytes);

/// Takes the byte order mark off, where there is one.
void dropByteOrderMark(std::string& bytes);

/// Bytes of a text file as UTF-8, line by line. A byte order mark is taken off.
std::string textFromBytes(std::string bytes);

}  // namespace kvo
