#include "app/command_line.h"

#include "base/numbers.h"
#include "base/text.h"
#include "render/wm8_profile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace kvo {
namespace {

constexpr double kMaxSide = 4096;  // pixels
constexpr double kMinRate = 2;     // frames a second, the least that a collection takes
constexpr double kMaxRate = 240;

std::optional<std::pair<double, double>> pairIn(std::string_view text, char between) {
  const auto at = text.find(between);
  if (at == std::string_view::npos) return std::nullopt;
  const auto a = numberIn(text.substr(0, at));
  const auto b = numberIn(text.substr(at + 1));
  if (!a || !b) return std::nullopt;
  return std::pair{*a, *b};
}

bool isWhole(double value) { return RoundToWhole(value) == value; }

Outcome readRange(CommandLine& line, const std::string& value) {
  auto range = pairIn(value, '-');
  // The engine is told hundredths.
  if (range) range = {std::round(range->first * 100) / 100, std::round(range->second * 100) / 100};
  if (!range || range->first < 0 || range->second <= range->first) {
    return Error{"--range " + value + ": give two times in seconds, like 1.5-4, a hundredth apart or more"};
  }
  line.range = engine::Slice{range->first, range->second};
  return {};
}

Outcome readSize(CommandLine& line, const std::string& value) {
  const auto size = pairIn(value, 'x');
  const auto fits = [](double side) { return isWhole(side) && side >= 2 && side <= kMaxSide; };
  if (!size || !fits(size->first) || !fits(size->second)) {
    return Error{"--size " + value + ": give width x height in pixels, 2 to 4096, like 640x360"};
  }
  line.size = PictureSides{static_cast<int>(size->first), static_cast<int>(size->second)};
  return {};
}

Outcome readRate(CommandLine& line, const std::string& value) {
  line.rate = numberIn(value);
  if (line.rate && *line.rate >= kMinRate && *line.rate <= kMaxRate) return {};
  return Error{"--rate " + value + ": give frames a second, 2 to 240, like 25"};
}

Outcome readCodec(CommandLine& line, const std::string& value) {
  line.codec = value;
  if (codecNamed(value)) return {};
  return Error{"--codec " + value + ": there are raw and mpeg4 for an .avi, vp9 and av1 for a .webm"};
}

Outcome readPreset(CommandLine& line, const std::string& value) {
  line.preset = presetNamed(value);
  if (line.preset != nullptr) return {};
  return Error{"--preset " + value + ": there is none of that name; --list-presets tells them"};
}

Outcome readQuality(CommandLine& line, const std::string& value) {
  const auto number = numberIn(value);
  if (!number || !isWhole(*number) || *number < 1 || *number > 63)
    return Error{"--quality " + value + ": give a number from 1, the finest, to 63"};
  line.quality = static_cast<int>(*number);
  return {};
}

Outcome readEffort(CommandLine& line, const std::string& value) {
  line.effort = value;
  if (effortOf(value)) return {};
  return Error{"--effort " + value + ": from ultrafast over veryfast, medium and slow to veryslow"};
}

Outcome readMegabytes(CommandLine& line, const std::string& value) {
  const auto number = numberIn(value);
  if (!number || *number < 0.01 || *number > 1e6)
    return Error{"--size-mb " + value + ": give megabytes, like 10"};
  line.megabytes = *number;
  return {};
}

Outcome readEncoder(CommandLine& line, const std::string& value) {
  const auto wish = encoderNamed(value);
  line.encoder = wish.value_or(EncoderWish::Software);
  if (wish) return {};
  return Error{"--encoder " + value + ": there are software, auto and hardware"};
}

Outcome readProfile(CommandLine& line, const std::string& value) {
  const auto number = numberIn(value);
  if (!number || !isWhole(*number) || *number < 0 || *number > kLastProfile)
    return Error{"--profile " + value + ": give the number of a Windows Media profile, 0 to 41"};
  line.profile = static_cast<int>(*number);
  return {};
}

Outcome readOutput(CommandLine& line, const std::string& value) {
  line.output = value;
  return value.empty() ? Outcome(Error{"--output: the name is empty"}) : Outcome();
}

Outcome readSlurm(CommandLine& line, const std::string& value) {
  constexpr double kMostJobs = 1000;
  const auto number = numberIn(value);
  if (!number || !isWhole(*number) || *number < 1 || *number > kMostJobs)
    return Error{"--slurm " + value + ": give the number of jobs at a time, 1 to 1000"};
  line.slurmJobs = static_cast<int>(*number);
  return {};
}

struct RenderOption {
  std::string_view name;
  Outcome (*read)(CommandLine& line, const std::string& value);
};

constexpr std::array kRenderOptions = {
    RenderOption{"--output", readOutput}, RenderOption{"--range", readRange},
    RenderOption{"--size", readSize},     RenderOption{"--rate", readRate},
    RenderOption{"--codec", readCodec},   RenderOption{"--profile", readProfile},
    RenderOption{"--preset", readPreset}, RenderOption{"--quality", readQuality},
    RenderOption{"--effort", readEffort}, RenderOption{"--size-mb", readMegabytes},
    RenderOption{"--slurm", readSlurm},   RenderOption{"--encoder", readEncoder},
};

// What is read for a command: its own word first, then what stands behind it.
using Words = std::span<const std::string>;

Outcome readNothing(CommandLine& /*line*/, Words words) {
  return words.size() == 1 ? Outcome() : Error{words[0] + " takes nothing behind it"};
}

Outcome readCollection(CommandLine& line, Words words) {
  if (words.size() < 2) return Error{words[0] + " needs a collection"};
  line.collection = words[1];
  return {};
}

// Whether a file of that ending can be what is asked for.
Outcome checkKind(const CommandLine& line) {
  const auto kind = outputKindOf(line.output);
  if (!kind) return Error{"--output " + line.output + ": its name must end in " + extensionsText(false)};
  if (line.preset != nullptr && line.preset->kind != *kind) {
    return Error{"--preset " + std::string(line.preset->name) + " goes with an output that ends in ." +
                 lower(movieFileOf(line.preset->kind).extension)};
  }
  if (line.megabytes > 0 && *kind != OutputKind::Mp4)
    return Error{"--size-mb goes with an output that ends in .mp4"};
  if (line.encoder != EncoderWish::Software && *kind != OutputKind::Mp4)
    return Error{"--encoder " + std::string(encoderWord(line.encoder)) +
                 " goes with an output that ends in .mp4"};
  if (line.encoder == EncoderWish::Hardware && line.slurmJobs > 0)
    return Error{"--encoder hardware does not go with --slurm: a cluster encodes in software"};
  const auto codecs = codecsOf(*kind);
  if (!line.codec.empty() && std::ranges::find(codecs, *codecNamed(line.codec)) == codecs.end())
    return Error{"--codec " + line.codec + " does not go with an output that ends in ." +
                 lower(movieFileOf(*kind).extension)};
  return {};
}

Outcome readRender(CommandLine& line, Words words) {
  if (auto done = readCollection(line, words); !done) return done;
  for (std::size_t i = 2; i < words.size(); i += 2) {
    if (words[i] == "--resume") {
      line.resume = true;
      --i;
      continue;
    }
    const auto* option = std::ranges::find(kRenderOptions, words[i], &RenderOption::name);
    if (option == kRenderOptions.end()) return Error{words[0] + " has no option " + words[i]};
    if (i + 1 == words.size()) return Error{words[i] + " needs a value"};
    if (auto done = option->read(line, words[i + 1]); !done) return done;
  }
  if (line.profile && !endsInText(line.output, ".wmv") && !endsInText(line.output, ".wma"))
    return Error{"--profile goes with an output that ends in .wmv or .wma"};
  if (line.output.empty()) return Error{words[0] + " needs --output FILE"};
  return checkKind(line);
}

struct QueueWord {
  std::string_view word;
  QueueAct act;
  std::size_t numbers;  // that stand behind it
};

constexpr std::array kQueueWords = {
    QueueWord{"list", QueueAct::List, 0},     QueueWord{"run", QueueAct::Run, 0},
    QueueWord{"clear", QueueAct::Clear, 0},   QueueWord{"pause", QueueAct::Pause, 1},
    QueueWord{"resume", QueueAct::Resume, 1}, QueueWord{"remove", QueueAct::Remove, 1},
    QueueWord{"move", QueueAct::Move, 2},
};

Outcome readQueueWords(CommandLine& line, Words words) {
  if (words.size() > 1 && words[1] == "add") {
    line.queueAct = QueueAct::Add;
    if (auto done = readRender(line, words.subspan(1)); !done) return done;
    if (line.slurmJobs > 0 || line.resume)
      return Error{"what the queue makes goes on by itself, and on this machine"};
    return {};
  }
  const auto* found =
      words.size() < 2 ? kQueueWords.end() : std::ranges::find(kQueueWords, words[1], &QueueWord::word);
  if (found == kQueueWords.end())
    return Error{words[0] + " needs one of add, list, pause, resume, remove, move and run"};
  std::array<int, 2> numbers{};
  if (words.size() != found->numbers + 2)
    return Error{words[0] + " " + words[1] + " takes " +
                 (found->numbers == 0   ? "nothing"
                  : found->numbers == 1 ? "the number of a job"
                                        : "the number of a job and a place") +
                 " behind it"};
  for (std::size_t i = 0; i < found->numbers; ++i) {
    const auto whole = toLong(numberIn(words[i + 2]).value_or(0));
    if (!whole || *whole < 1) return Error{words[0] + " " + words[1] + ": " + words[i + 2] + " is no number"};
    numbers.at(i) = *whole;
  }
  line.queueAct = found->act;
  line.queueNumber = numbers[0];
  line.queuePlace = numbers[1];
  return {};
}

Outcome readAdd(CommandLine& line, Words words) {
  if (auto done = readCollection(line, words); !done) return done;
  if (words.size() < 3) return Error{words[0] + " needs files to add"};
  line.names.assign(words.begin() + 2, words.end());
  return {};
}

Outcome readCheck(CommandLine& line, Words words) {
  if (words.size() > 2) return Error{words[0] + " takes nothing behind " + words[1]};
  return readCollection(line, words);
}

Outcome readDocument(CommandLine& line, Words words) {
  if (auto done = readCollection(line, words); !done) return done;
  if (words.size() < 3) return Error{words[0] + " needs a file to write"};
  line.output = words[2];
  if (words.size() == 3) return {};
  if (words.size() != 5 || words[3] != "--preview")
    return Error{words[0] + " takes nothing behind " + words[2]};
  const auto power = numberIn(words[4]);
  if (!power || !isWhole(*power) || *power < 1 || *power > 10)
    return Error{words[3] + " " + words[4] + ": give a power from 1 to 10"};
  line.previewPower = static_cast<int>(*power);
  return {};
}

struct Command {
  std::string_view word;
  Task task;
  Outcome (*read)(CommandLine& line, Words words);
};

constexpr std::array kCommands = {
    Command{"--help", Task::Help, readNothing},       Command{"-h", Task::Help, readNothing},
    Command{"--version", Task::Version, readNothing}, Command{"--gallery", Task::Gallery, readNothing},
    Command{"--look", Task::Look, readNothing},       Command{"--sketch", Task::Sketch, readNothing},
    Command{"--render", Task::Render, readRender},    Command{"--add", Task::Add, readAdd},
    Command{"--check", Task::Check, readCheck},       Command{"--document", Task::Document, readDocument},
    Command{"--queue", Task::Queue, readQueueWords},  Command{"--list-presets", Task::Presets, readNothing},
};

}  // namespace

bool isConsoleCommand(const std::vector<std::string>& arguments) {
  return !arguments.empty() && (arguments[0].starts_with("--") || arguments[0] == "-h");
}

Result<CommandLine> readCommandLine(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return Error{"there is nothing to do"};
  const auto* command = std::ranges::find(kCommands, arguments[0], &Command::word);
  if (command == kCommands.end()) return Error{"there is no command " + arguments[0]};
  CommandLine line;
  line.task = command->task;
  if (auto done = command->read(line, arguments); !done) return done.error();
  return line;
}

std::string_view helpText() {
  return R"(kvo5 - media player and movie maker

kvo5 [SWITCH]... [FILE]...
    Opens the window. FILE is a collection (.INI) to open, or a clip to add. Where a copy runs already, it is
    handed the files.
      /FULLSC           full screen, when the collection has clips
      /HUNPCT           the same with the least about the picture
kvo5 --render COLLECTION --output FILE [OPTION VALUE]...
    Makes a movie of a collection. The end of FILE says its kind: .mp4 (H.264 and AAC), .webm (VP9 or AV1, and
    Opus), .mov (ProRes), .wmv, .avi, .gif; .m4a, .mp3, .flac, .wma or .wav for the sound alone.
      --preset NAME     a choice of the rest by what the movie is for: web, phone, archive, email, ...
      --size-mb SIZE    of an .mp4: not more than so many megabytes (of 1,000,000 bytes), made in two passes
      --range FROM-TO   only this part of the movie, in seconds: 1.5-4
      --size WxH        picture size in pixels: 640x360
      --rate FPS        frames a second, 2 to 240: 25
      --codec NAME      of an .avi: raw (as it is without this option) or mpeg4; of a .webm: vp9 or av1
      --quality NUMBER  of an .mp4 or .webm: on the codec's own scale, the finest first: 20
      --effort WORD     of the same: from ultrafast over veryfast, medium and slow to veryslow
      --encoder WORD    of an .mp4: software (as it is without this option), hardware (the encoder of the
                        graphics card, larger at the same quality), or auto (that one where it works)
      --profile NUMBER  of a .wmv or .wma: size and bit rates of a Windows Media profile, 0 to 41
      --resume          keeps what is finished of the picture in a folder beside FILE, and goes on from there
                        when the same render was cut off or stopped
      --slurm JOBS      a Slurm cluster makes the picture, so many jobs at a time; FILE and all clips lie in
                        folders that its machines share
kvo5 --queue add COLLECTION --output FILE [OPTION VALUE]...
    Puts a render into the queue, which the window makes in the background.
kvo5 --queue list | run | clear | pause N | resume N | remove N | move N PLACE
    Lists the queue; makes what waits in it here; takes out what is done; or does so with its job N.
kvo5 --list-presets
    Lists the presets of --render.
kvo5 --add COLLECTION FILE...
    Adds clips, folders of clips and addresses of streams to a collection, which is begun where there is none.
kvo5 --check COLLECTION
    Lists the clips with what they hold and their times, and what is wrong with them.
kvo5 --document COLLECTION FILE [--preview POWER]
    Writes the timeline document that a render would be made from, or a preview of power 1 to 10.
kvo5 --gallery
    Shows the widgets that the windows are made of, in all their states.
kvo5 --help
kvo5 --version

Files of the program (KVO5.INI, KVOError.Log and others) lie in ~/.local/share/KVO5, or in $KVO5_HOME.

Exit codes: 0 done, 1 failed, 2 wrong usage, 130 stopped by the user.
)";
}

}  // namespace kvo
