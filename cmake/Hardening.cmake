# SPDX-License-Identifier: GPL-3.0-or-later

# How Debian hardens its programs, for every optimised part of ours: functions that notice a broken stack, jumps that
# only end where they may, checked string functions, and no symbol that can be redirected once the program has started.
# What the compiler does by itself or is told by the environment is never lowered.

if(NOT CMAKE_SYSTEM_NAME STREQUAL Linux OR VORHAVEN_SANITIZERS)
  return()
endif()
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

check_cxx_compiler_flag(-fstack-protector-strong VORHAVEN_HAS_STACK_PROTECTOR)
# Not every processor has it.
check_cxx_compiler_flag(-fcf-protection VORHAVEN_HAS_CF_PROTECTION)
set(CMAKE_REQUIRED_FLAGS -O1)
check_cxx_source_compiles("
#ifndef _FORTIFY_SOURCE
#error
#endif
int main() {}
" VORHAVEN_IS_FORTIFIED)
unset(CMAKE_REQUIRED_FLAGS)

set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
target_compile_options(vorhaven_options INTERFACE
  $<$<AND:${optimised},$<BOOL:${VORHAVEN_HAS_STACK_PROTECTOR}>>:-fstack-protector-strong>
  $<$<AND:${optimised},$<BOOL:${VORHAVEN_HAS_CF_PROTECTION}>>:-fcf-protection>
  $<$<AND:${optimised},$<NOT:$<BOOL:${VORHAVEN_IS_FORTIFIED}>>>:-D_FORTIFY_SOURCE=2>)
target_link_options(vorhaven_options INTERFACE LINKER:-z,relro,-z,now)
