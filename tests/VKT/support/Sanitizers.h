#pragma once

// VKT_ADDRESS_SANITIZER is defined where the address sanitizer watches, which ends the program
// where memory would run out and brings its own `operator new`.
#if defined(__SANITIZE_ADDRESS__)
#define VKT_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VKT_ADDRESS_SANITIZER
#endif
#endif
