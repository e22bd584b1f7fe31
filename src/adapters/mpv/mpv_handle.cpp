#include "adapters/mpv/mpv_handle.h"

#include <mpv/client.h>
#include <stdexcept>
#include <vector>

namespace kvo {

MpvHandle::MpvHandle(std::initializer_list<Option> options) {
  handle_.reset(mpv_create());
  if (handle_ == nullptr) throw std::runtime_error("there is no player: libmpv gives no core");
  for (const auto& [name, value] : options) {
    if (mpv_set_option_string(handle_.get(), name, value.c_str()) < 0)
      throw std::runtime_error(std::string("there is no player: libmpv does not know the option ") + name);
  }
  if (const int done = mpv_initialize(handle_.get()); done < 0)
    throw std::runtime_error(std::string("there is no player: ") + mpv_error_string(done));
}

void MpvHandle::End::operator()(mpv_handle* handle) const { mpv_terminate_destroy(handle); }

void MpvHandle::set(const char* property, const std::string& value) const {
  const char* text = value.c_str();
  mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_STRING, &text);
}

void MpvHandle::set(const char* property, double value) const {
  mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_DOUBLE, &value);
}

void MpvHandle::set(const char* property, bool value) const {
  int flag = value ? 1 : 0;
  mpv_set_property_async(handle_.get(), 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvHandle::command(std::initializer_list<std::string> words, std::uint64_t reply) const {
  std::vector<const char*> pointers;
  for (const auto& word : words) pointers.push_back(word.c_str());
  pointers.push_back(nullptr);
  mpv_command_async(handle_.get(), reply, pointers.data());
}

void MpvHandle::observe(const char* property, int format, std::uint64_t reply) const {
  mpv_observe_property(handle_.get(), reply, property, static_cast<mpv_format>(format));
}

std::optional<double> MpvHandle::number(const std::string& property) const {
  double value = 0;
  if (mpv_get_property(handle_.get(), property.c_str(), MPV_FORMAT_DOUBLE, &value) < 0) return {};
  return value;
}

std::optional<std::string> MpvHandle::text(const std::string& property) const {
  const std::unique_ptr<char, decltype(&mpv_free)> value(
      mpv_get_property_string(handle_.get(), property.c_str()), &mpv_free);
  if (value == nullptr) return {};
  return std::string(value.get());
}

bool MpvHandle::isSet(const char* property) const {
  int flag = 0;
  return mpv_get_property(handle_.get(), property, MPV_FORMAT_FLAG, &flag) >= 0 && flag != 0;
}

const mpv_event& MpvHandle::nextEvent(double seconds) const {
  return *mpv_wait_event(handle_.get(), seconds);
}

}  // namespace kvo
