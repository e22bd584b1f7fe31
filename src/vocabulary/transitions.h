// The transitions by name, and the class ids that stand for them in a document, in their own case.
#pragma once

#include <span>
#include <string_view>

namespace kvo {

namespace transition_ids {
inline constexpr std::string_view kBarn = "{C3BDF740-0B58-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kBlinds = "{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}";
inline constexpr std::string_view kPlacing =
    "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}";  ///< a layer moved and sized by keyframes
inline constexpr std::string_view kCheckerboard = "{B3EE7802-8224-4787-A1EA-F0DE16DEABD3}";
inline constexpr std::string_view kColorFade = "{2A54C908-07AA-11D2-8D6D-00C04F8EF8E0}";
inline constexpr std::string_view kCompositor = "{9A43A844-0831-11D1-817F-0000F87557DB}";
inline constexpr std::string_view kCurtains = "{AA0D4D12-06A3-11D2-8F98-00C04FB92EB7}";
inline constexpr std::string_view kDissolve = "{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}";
inline constexpr std::string_view kFade = "{16B280C5-EE70-11D1-9066-00C04FD9189D}";
inline constexpr std::string_view kFadeWhite = "{107045CC-06E0-11D2-8D6D-00C04F8EF8E0}";
inline constexpr std::string_view kInset = "{93073C40-0BA5-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kIris = "{3F69F351-0379-11D2-A484-00C04F8EFB69}";
inline constexpr std::string_view kPixelate = "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}";
inline constexpr std::string_view kRadialWipe = "{424B71AF-0695-11D2-A484-00C04F8EFB69}";
inline constexpr std::string_view kRollDown = "{9C61F46E-0530-11D2-8F98-00C04FB92EB7}";
inline constexpr std::string_view kSlide = "{810E402F-056B-11D2-A484-00C04F8EFB69}";
inline constexpr std::string_view kSmpteWipe = "{dE75D012-7A65-11D2-8CEA-00A0C9441E20}";  ///< by MaskNum
inline constexpr std::string_view kSpiral = "{ACA97E00-0C7D-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kStretch = "{7658F2A2-0A83-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kThreshold = "{2A54C915-07AA-11D2-8D6D-00C04F8EF8E0}";
inline constexpr std::string_view kWheel = "{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kWipe = "{AF279B30-86EB-11D1-81BF-0000F87557DB}";
inline constexpr std::string_view kZigzag = "{E6E73D20-0C8A-11d2-A484-00C04F8EFB69}";
inline constexpr std::string_view kParticlesAnd3D =
    "{C63344D8-70D3-4032-9B32-7A3CAD5091A5}";  ///< by InternalName
inline constexpr std::string_view kNone =
    "{99999999-9999-9999-9999-999999999999}";  ///< the null element: a plain cut
}  // namespace transition_ids

/// Every name on offer, in the order of the list.
std::span<const std::string_view> transitionNames();

struct NamedClass {
  std::string_view name;
  std::string_view clsid;
};

/// The class ids of the transitions that are known by a name of their own. Wipes of a mask, particles and
/// simple 3D are not: they share one class id each.
std::span<const NamedClass> transitionClasses();

}  // namespace kvo
