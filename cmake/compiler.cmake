# One interface target with the flags of every build; the folders link it through `pure`.
add_library(tarnwell_flags INTERFACE)
target_compile_options(tarnwell_flags INTERFACE
  -Wall -Wextra -Wshadow -Wconversion)

if(WIN32)
  # SSE arithmetic rounds single precision at every step, like the native build: position read-outs
  # agree to the millisecond in both.
  target_compile_options(tarnwell_flags INTERFACE -msse2 -mfpmath=sse -fstack-protector-strong)
  target_compile_definitions(tarnwell_flags INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX STRICT WINVER=0x0501 _WIN32_WINNT=0x0501)
  # In the file the sections lie as in memory, a page apart: the platform then maps the file instead
  # of copying it into memory of the process's own.
  target_link_options(tarnwell_flags INTERFACE -Wl,--file-alignment,4096
    -static -fstack-protector-strong -Wl,--dynamicbase,--nxcompat
    -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>) # the same bytes from the same source
  if(TARNWELL_CHECKED)
    target_compile_options(tarnwell_flags INTERFACE
      -D_GLIBCXX_ASSERTIONS -fsanitize=undefined,float-cast-overflow -fsanitize-undefined-trap-on-error)
  else()
    target_compile_options(tarnwell_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  endif()
elseif(TARNWELL_SANITIZE)
  set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # Lets the fuzz targets see which way an input takes through the pure procedures.
    list(APPEND sanitizers -fsanitize=fuzzer-no-link)
  endif()
  target_compile_options(tarnwell_flags INTERFACE ${sanitizers})
  target_link_options(tarnwell_flags INTERFACE ${sanitizers})
endif()
