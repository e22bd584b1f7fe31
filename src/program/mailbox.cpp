#include "program/mailbox.h"

#include "base/text.h"
#include "core/telling/messages.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr int kMailboxInterval = 200;  // milliseconds

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    if (const auto line = nextLine(text); !trimmed(line).empty()) lines.emplace_back(line);
  }
  return lines;
}

}  // namespace

Mailbox::Mailbox(const ProgramParts& parts, Intro& intro)
    : parts_(parts), intro_(intro), timer6_(parts.loop.timer([this] { look(); })) {}

void Mailbox::open(const std::string& workingFolder) {
  workingFolder_ = workingFolder;
  timer6_->start(kMailboxInterval);
}

void Mailbox::look() {
  if (parts_.window.busy()) return;  // it is taken at a later tick
  if (const auto text = parts_.handover.take()) takeHandover(*text);
}

void Mailbox::takeHandover(const std::string& text) {
  intro_.leave();
  if (trimmed(text) == kRemovePreview) {
    const auto& clips = parts_.collection.MovieList;
    std::vector<int> previews;
    for (int i = 1; i <= clips.count(); ++i) {
      if (sameText(clips[i].MovieName(), "PREVIEW.WMV")) previews.push_back(i);
    }
    parts_.history.remove(CommandPass(parts_.window), previews);
    return;
  }
  parts_.window.face.visible = parts_.window.face.raise = true;
  auto lines = linesOf(text);
  for (auto& line : lines) {
    if (!parts_.files.exists(line)) line = trimmed(replaced(line, "\"", ""));
  }
  parts_.window.mode.player.IsPaused = false;
  const auto command = readStartCommand(lines, parts_.files, workingFolder_);
  take(command);
  if (!command.clips.empty() && transport_ != nullptr) transport_->Img_Play_Click();
}

void Mailbox::takeFiles(const std::vector<std::string>& paths, int before) {
  StartCommand command;
  for (const auto& path : paths) {
    if (namesCollection(path)) {
      command.collection = path;
    } else {
      command.clips.push_back(path);
    }
  }
  std::sort(command.clips.begin(), command.clips.end(), naturalLess);  // a file manager has no order
  take(command, before);
}

// Of several it is told which one is at work, and a click leaves out the rest.
void Mailbox::add(const std::vector<std::string>& clips) {
  auto& progress = parts_.window.progress;
  progress.total = static_cast<int>(clips.size());
  parts_.refusals.together([&] {
    for (const auto& clip : clips) {
      ++progress.done;
      if (progress.total > 1) {
        progress.status = std::string(LoadResString(390)) + std::to_string(progress.done) + " of " +
                          std::to_string(progress.total);
        progress.status.append(LoadResString(391)).append(kCrLf).append(clip);
        progress.abortText = LoadResString(341);
        parts_.loop.yield();
      }
      if (progress.abortClicked) break;
      parts_.intake.AddMoviesm(clip);
    }
    progress = {};
  });
}

void Mailbox::take(const StartCommand& command, int before) {
  if (!command.collection.empty() && !parts_.commands.openNamed(command.collection)) return;
  const CommandPass pass(parts_.window);
  if (!pass || command.clips.empty()) return;
  intro_.leave();
  const bool added = parts_.history.add(
      pass, [&] { add(command.clips); }, before);
  parts_.list.show();
  if (added) parts_.list.PreviewMovie(parts_.collection.icurMov);
}

}  // namespace kvo
