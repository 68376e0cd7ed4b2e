# Generated headers are compiled by the compiler of this build and linked to these libraries.

set(generated_flags "${CMAKE_CXX_FLAGS}")
if(ZQ_SANITIZE)
  string(APPEND generated_flags " -fsanitize=${ZQ_SANITIZE}")
endif()
target_compile_definitions(${target} PRIVATE
  ZQ_CXX="${CMAKE_CXX_COMPILER}"
  ZQ_CXX_FLAGS="${generated_flags}"
  ZQ_FLOORS="${ZQ_FLOOR_ROOT}"
  ZQ_LIBRARIES="$<TARGET_FILE:zq_components> $<TARGET_FILE:zq_toolkit> $<TARGET_FILE:zq_base> $<TARGET_FILE:zq_services>")
