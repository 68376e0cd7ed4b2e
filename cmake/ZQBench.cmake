# Benchmarks, one program for each file of bench/. What lies in bench/peers has a project of
# its own, for it may need toolkits that the library itself does without.

find_package(benchmark REQUIRED)
file(GLOB benches CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/*.cpp")
foreach(bench IN LISTS benches)
  cmake_path(GET bench STEM name)
  zq_uses_qt(with_qt ${bench})
  if(with_qt AND NOT ZQ_QT)
    continue()
  endif()
  add_executable(bench_${name} ${bench})
  target_link_libraries(bench_${name} PRIVATE
    $<IF:${with_qt},ZQSwiftUI::Qt,ZQSwiftUI::Core> benchmark::benchmark benchmark::benchmark_main)
  zq_warnings(bench_${name})
  if(TARGET zq-${name}-parts)  # what is measured is a program
    target_link_libraries(bench_${name} PRIVATE zq-${name}-parts)
  endif()
endforeach()

# The library's own program of the comparison in bench/peers.
if(ZQ_QT)
  file(GLOB peer_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/peers/ours/*.cpp")
  add_executable(zq-bench-peer ${peer_sources})
  target_include_directories(zq-bench-peer PRIVATE "${PROJECT_SOURCE_DIR}/bench/peers/common")
  target_link_libraries(zq-bench-peer PRIVATE ZQSwiftUI::Qt)
  zq_warnings(zq-bench-peer)
endif()
