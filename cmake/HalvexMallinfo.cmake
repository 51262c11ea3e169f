# HALVEX_HAS_MALLINFO2: whether the C library tells how much memory is in use. A sanitizer brings a malloc of its own,
# of which mallinfo2() knows nothing; it looks for leaks itself.

include(CheckCXXSourceCompiles)
check_cxx_source_compiles("
  #include <malloc.h>
  #if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  #error sanitized
  #endif
  #if defined(__has_feature)
  #if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
  #error sanitized
  #endif
  #endif
  int main() { return mallinfo2().uordblks == 0; }" HALVEX_HAS_MALLINFO2)
