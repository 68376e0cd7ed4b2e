# cmake -DOUTPUT=<file.cpp> -DPAGES=<folder> -P embed_code.cmake
# Writes pageCode(stem): the marked parts of each page's source, joined by an empty line.

cmake_minimum_required(VERSION 3.25)
file(GLOB pages "${PAGES}/*.cpp")
set(rows "")
foreach(page IN LISTS pages)
  cmake_path(GET page STEM stem)
  file(READ "${page}" rest)
  set(code "")
  while(TRUE)
    string(FIND "${rest}" "// [code]\n" begin)
    string(FIND "${rest}" "// [/code]\n" end)
    if(begin LESS 0 OR end LESS begin)
      break()
    endif()
    math(EXPR first "${begin} + 10")
    math(EXPR length "${end} - ${first}")
    string(SUBSTRING "${rest}" ${first} ${length} part)
    if(NOT code STREQUAL "")
      string(APPEND code "\n")
    endif()
    string(APPEND code "${part}")
    math(EXPR after "${end} + 11")
    string(SUBSTRING "${rest}" ${after} -1 rest)
  endwhile()
  if(code STREQUAL "")
    message(FATAL_ERROR "${page} shows no code: put a part of it between // [code] and // [/code].")
  endif()
  string(APPEND rows "      {\"${stem}\", R\"zqcode(${code})zqcode\"},\n")
endforeach()

file(WRITE "${OUTPUT}" "// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <unordered_map>

namespace zq::gallery {

std::string pageCode(std::string_view stem) {
  static const std::unordered_map<std::string_view, const char*> codes = {
${rows}  };
  const auto found = codes.find(stem);
  return found == codes.end() ? std::string() : std::string(found->second);
}

}  // namespace zq::gallery
")
