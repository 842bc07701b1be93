# Flags that hold for every target: warnings as errors, hardening, and exact arithmetic.

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees an overlap in "literal" + std::string that is not there (its bug 105651).
  add_compile_options(-Wno-restrict)
endif()

# Maps and conversions must give the same figures everywhere: no contraction of a product and a
# sum, no errno from a square root or a rounding (so that both compile to one instruction).
add_compile_options(-ffp-contract=off -fno-math-errno)

# Hardening, in every build.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_compile_options(-fstack-protector-strong)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
add_link_options(-Wl,-z,relro -Wl,-z,now)

add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# The fuzz targets see every branch of the floors below them. clang-tidy only reads them.
if(TRAVO_FUZZ AND NOT CMAKE_CXX_CLANG_TIDY)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# What moc writes is not ours to mend: its files see this one check, since clang-tidy refuses to run none.
if(CMAKE_CXX_CLANG_TIDY)
  file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-throw-by-value-catch-by-reference'\n")
endif()

if(TRAVO_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
