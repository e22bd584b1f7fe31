#include "render/engine_protocol.h"

#include "base/escaped_line.h"
#include "base/numbers.h"

#include <algorithm>
#include <optional>

namespace kvo {
namespace {

// Up to the next blank, which goes too.
std::string_view takeWord(std::string_view& rest) {
  const auto word = rest.substr(0, rest.find(' '));
  rest.remove_prefix(std::min(word.size() + 1, rest.size()));
  return word;
}

std::optional<double> takeNumber(std::string_view& rest) {
  constexpr double kMost = 1e15;  // whole numbers up to here are exact, and fit their types
  const auto number = numberIn(takeWord(rest));
  return number && *number >= 0 && *number <= kMost ? number : std::nullopt;
}

EngineWord readProgress(std::string_view rest) {
  const auto done = takeNumber(rest);
  const auto total = takeNumber(rest);
  const auto bytes = takeNumber(rest);
  const auto written = takeNumber(rest);
  const auto kept = takeNumber(rest);
  if (!done || !total) return {};
  return EngineProgress{*done, *total, bytes.value_or(0), written.value_or(0), kept.value_or(0)};
}

EngineWord readDamage(std::string_view rest) {
  const auto kind = takeWord(rest);
  const auto from = takeNumber(rest);
  const auto to = takeNumber(rest);
  if ((kind != "sound" && kind != "picture") || !from || !to || rest.empty()) return {};
  return EngineDamage{kind == "sound", *from, *to, unescapedLine(rest)};
}

EngineWord readNote(std::string_view rest) {
  if (rest.empty()) return {};
  return EngineNote{unescapedLine(rest)};
}

EngineWord readReport(std::string_view rest) {
  const auto frames = takeNumber(rest);
  const auto seconds = takeNumber(rest);
  const auto bytes = takeNumber(rest);
  if (!frames || !seconds || !bytes) return {};
  return EngineReport{static_cast<std::int64_t>(*frames), *seconds, static_cast<std::uint64_t>(*bytes)};
}

std::string_view kindOf(const EngineDamage& damage) { return damage.isSound ? "sound" : "picture"; }

}  // namespace

std::string engineLine(const EngineProgress& progress) {
  return "progress " + FormatMask(progress.done, "0.000") + " " + FormatMask(progress.total, "0.000") + " " +
         FormatMask(progress.bytes, "0") + " " + FormatMask(progress.written, "0.000") + " " +
         FormatMask(progress.kept, "0.000");
}

std::string engineLine(const EngineDamage& damage) {
  return std::string("damage ").append(kindOf(damage)) + " " + FormatMask(damage.from, "0.00") + " " +
         FormatMask(damage.to, "0.00") + " " + escapedLine(damage.file);
}

std::string engineLine(const EngineNote& note) { return "note " + escapedLine(note.text); }

std::string engineLine(const EngineReport& report) {
  return "done " + std::to_string(report.frames) + " " + FormatMask(report.seconds, "0.000") + " " +
         std::to_string(report.bytes);
}

EngineWord readEngineLine(std::string_view line) {
  const auto kind = takeWord(line);
  if (kind == "progress") return readProgress(line);
  if (kind == "damage") return readDamage(line);
  if (kind == "note") return readNote(line);
  if (kind == "done") return readReport(line);
  return {};
}

std::string damageText(const EngineDamage& damage) {
  return damage.file + ": the " + std::string(kindOf(damage)) + " from " + FormatMask(damage.from, "0.00") +
         " to " + FormatMask(damage.to, "0.00") + " s cannot be decoded; " +
         (damage.isSound ? "it is silent" : "the one ahead stands");
}

}  // namespace kvo
