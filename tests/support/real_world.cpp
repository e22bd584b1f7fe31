#include "support/real_world.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fcntl.h>
#include <future>
#include <sstream>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kvo::test {
namespace {

constexpr double kGreyStep = 2 * 255.0 / 219;  // a counting video adds 2 of 219 steps of luma each frame

// Starts it in a group of its own, with these descriptors for its output and errors. It ends with the test at
// the latest. The child borrows the memory: copying the tables of a sanitizer's takes longer than many a
// program.
int startProgram(const std::vector<std::string>& command, int out, int err) {
  std::vector<char*> arguments;
  for (const auto& a : command) arguments.push_back(const_cast<char*>(a.c_str()));
  arguments.push_back(nullptr);
  const auto child = ::vfork();
  if (child != 0) return child;
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::dup2(out, STDOUT_FILENO);
  ::dup2(err, STDERR_FILENO);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

int codeOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status); }

int endOf(int process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return codeOf(status);
}

std::vector<std::string> joined(std::vector<std::string> a, const std::vector<std::string>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// What ffmpeg decodes a file into, as raw bytes.
std::string decoded(const std::string& path, const std::vector<std::string>& format) {
  const ScratchFolder folder;
  const auto raw = folder / "raw";
  auto command = joined({"ffmpeg", "-v", "error", "-nostdin", "-i", path}, format);
  command.push_back(raw);
  const auto end = runProgram(command);
  EXPECT_EQ(end.exitCode, 0) << path << ": " << end.err;
  return bytesOf(raw);
}

std::string heard(int file) { return bytesOf("/proc/self/fd/" + std::to_string(file)); }

}  // namespace

ScratchFolder::ScratchFolder() {
  auto name = (std::filesystem::temp_directory_path() / "kvo-test-XXXXXX").string();
  path_ = ::mkdtemp(name.data());
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> ScratchFolder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

Companion::Companion(const std::vector<std::string>& command)
    : out_(::memfd_create("out", MFD_CLOEXEC)),
      err_(::memfd_create("err", MFD_CLOEXEC)),
      process_(startProgram(command, out_, err_)) {}

Companion::~Companion() {
  if (!hasEnded()) signal(SIGTERM);
  end();
  ::close(out_);
  ::close(err_);
}

void Companion::signal(int number) const { ::kill(process_, number); }

std::string Companion::said() const { return heard(out_) + heard(err_); }

std::string Companion::firstLine() const {
  std::string out;
  EXPECT_TRUE(eventually([&] { return holds(out = heard(out_), "\n"); })) << said();
  return out.substr(0, out.find('\n'));
}

bool Companion::hasEnded() {
  int status = 0;
  if (!end_ && ::waitpid(process_, &status, WNOHANG) == process_) end_ = codeOf(status);
  return end_.has_value();
}

int Companion::end() {
  if (!end_) end_ = endOf(process_);
  return *end_;
}

bool eventually(const std::function<bool()>& holds, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (std::chrono::steady_clock::now() < end) {
    if (holds()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return holds();
}

bool comesToItsEnd(int process) {
  return eventually([&] {
    const auto text = bytesOf("/proc/" + std::to_string(process) + "/stat");
    const auto name = text.rfind(')');
    return name == std::string::npos || text.compare(name, 3, ") Z") == 0;
  });
}

std::string noise(std::size_t count) {
  std::string bytes(count, '\0');
  unsigned random = 1;
  for (auto& byte : bytes) byte = static_cast<char>((random = random * 1664525U + 1013904223U) >> 24U);
  return bytes;
}

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();  // throws nothing where a process ends while its state is read
  return bytes.str();
}

// Through pipes: limits on the size of files are no limits of what a program says.
ProgramEnd runProgram(const std::vector<std::string>& command) {
  std::array<std::array<int, 2>, 2> pipes{};
  for (auto& pipe : pipes) EXPECT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  const auto child = startProgram(command, pipes[0][1], pipes[1][1]);
  for (auto& pipe : pipes) ::close(pipe[1]);
  const auto heard = [](int pipe) {
    std::string all;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = ::read(pipe, buffer.data(), buffer.size())) > 0;)
      all.append(buffer.data(), static_cast<std::size_t>(got));
    ::close(pipe);
    return all;
  };
  auto errors = std::async(std::launch::async, heard, pipes[1][0]);
  auto out = heard(pipes[0][0]);
  return {endOf(child), std::move(out), errors.get()};
}

std::string makeMedia(const ScratchFolder& folder, const std::string& name,
                      const std::vector<std::string>& arguments) {
  namespace fs = std::filesystem;
  auto command = joined({"ffmpeg", "-v", "error", "-nostdin", "-y"}, arguments);
  std::string words = fs::path(name).extension();
  for (const auto& word : arguments) words += " " + word;
  const auto kept = KVO_MEDIA "/" + std::to_string(std::hash<std::string>()(words)) + ".media";
  std::error_code failed;
  // What is made of other files may be another the next time.
  const bool mayKeep = !holds(words, fs::temp_directory_path().string());
  if (mayKeep && fs::copy_file(kept, folder / name, fs::copy_options::overwrite_existing, failed))
    return folder / name;
  command.push_back(folder / name);
  const auto end = runProgram(command);
  EXPECT_EQ(end.exitCode, 0) << name << ": " << end.err;
  if (mayKeep && end.exitCode == 0) {
    const auto mine = kept + std::to_string(::getpid());
    if (fs::copy_file(folder / name, mine, failed)) fs::rename(mine, kept, failed);
  }
  return folder / name;
}

std::string makeCountingVideo(const ScratchFolder& folder, const std::string& name, const std::string& rate,
                              int frames) {
  return makeMedia(folder, name,
                   {"-f", "lavfi", "-i",
                    "color=black:size=64x48:rate=" + rate + ",format=yuv420p,geq=lum='16+2*N':cb=128:cr=128",
                    "-frames:v", std::to_string(frames), "-c:v", "ffv1"});
}

double DecodedPicture::mean(int colour) const {
  double sum = 0;
  for (auto i = static_cast<std::size_t>(colour); i < rgb.size(); i += 3) sum += rgb[i];
  return sum * 3 / static_cast<double>(rgb.size());
}

std::vector<DecodedPicture> picturesOf(const std::string& path, int width, int height) {
  const auto bytes = decoded(path, {"-fps_mode", "passthrough", "-f", "rawvideo", "-pix_fmt", "rgb24"});
  const auto size = static_cast<std::size_t>(3 * width * height);
  std::vector<DecodedPicture> pictures;
  EXPECT_EQ(bytes.size() % size, 0U) << path << " is not " << width << " x " << height;
  for (std::size_t at = 0; at + size <= bytes.size(); at += size) {
    pictures.push_back({width,
                        {bytes.begin() + static_cast<std::ptrdiff_t>(at),
                         bytes.begin() + static_cast<std::ptrdiff_t>(at + size)}});
  }
  return pictures;
}

int frameNumber(const DecodedPicture& picture) {
  return static_cast<int>(std::lround(picture.mean() / kGreyStep));
}

std::vector<float> samplesOf(const std::string& path, int channel) {
  const auto bytes = decoded(path, {"-ac", "2", "-ar", "44100", "-f", "f32le"});
  std::vector<float> both(bytes.size() / sizeof(float));
  std::copy_n(bytes.data(), both.size() * sizeof(float), reinterpret_cast<char*>(both.data()));
  std::vector<float> one;
  for (auto i = static_cast<std::size_t>(channel); i < both.size(); i += 2) one.push_back(both[i]);
  return one;
}

double levelOf(const std::vector<float>& samples, double from, double to) {
  const auto first = static_cast<std::size_t>(from * 44100);
  const auto last = std::min(static_cast<std::size_t>(to * 44100), samples.size());
  double sum = 0;
  for (auto i = first; i < last; ++i)
    sum += static_cast<double>(samples[i]) * static_cast<double>(samples[i]);
  return 10 * std::log10(sum / static_cast<double>(last - first) + 1e-12);
}

std::string probed(const std::string& path, const std::string& entries) {
  const auto end =
      runProgram({"ffprobe", "-v", "error", "-show_entries", entries, "-of", "default=nw=1:nk=1", path});
  EXPECT_EQ(end.exitCode, 0) << path << ": " << end.err;
  auto text = end.out;
  std::replace(text.begin(), text.end(), '\n', ' ');
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

}  // namespace kvo::test
