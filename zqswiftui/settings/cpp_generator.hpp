// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

// Settings access in C++: a class with a typed, read-only property an item, named after the
// tokens of group and key as in the Swift source. In a debug build a property asks the store
// for the value of the moment; where NDEBUG is defined it is the value of the project, and the
// header needs nothing of this library but the type of a point. Any thread.
//   const Settings settings(context.observe(config));
//   double zoom = settings.Canvas_maxZoom();
//
// Names that C++ keeps for itself are changed: runs of "_" become one, "_X" loses its "_", and
// a name that is taken already, a keyword for instance, gets a number: Canvas_zoom_2.
//
// The two builds never disagree. Where the store could not reach an item, because an earlier
// one of its group or an earlier group has the same token, there is an error that names both.
// The same holds for a number that is not finite. Groups and items that are flagged to be
// deleted are left out, as they are of the project that the store loads.

struct CppOptions {
  std::string className = "Settings";
  std::string namespaceName{};        // such as app::ui; none where it is empty
  std::vector<std::string> groups{};  // names or tokens of those wanted; all where it is empty
};

// Whether C++ allows the names.
Result<void> checkCppOptions(const CppOptions& options);

// One header with all properties in one class.
Result<std::string> cppCode(const ZQUICProject& project, const CppOptions& options = {});

struct CppHeader {
  std::string fileName;
  std::string text;
  bool operator==(const CppHeader&) const = default;
};

// For big projects: a header and a class a group, Settings_Canvas in settings_canvas.hpp, so
// that who uses one group compiles no other. The first is settings.hpp, whose class Settings
// has the properties of all. Groups without items have none. File names are lower-case ASCII.
Result<std::vector<CppHeader>> cppHeaders(const ZQUICProject& project,
                                          const CppOptions& options = {});

// The file of a class: settings.hpp of Settings, photo_settings.hpp of PhotoSettings.
std::string cppFileName(const std::string& className);

}  // namespace zq
