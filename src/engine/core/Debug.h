// Diagnostics: AutomationPrintf formats one line (at most 255 characters, newline
// added when missing) for the platform's debug output; test automation reads these
// lines. NOX_ASSERT reports through the assertion handler and waits for the child.
#pragma once

namespace nox {

void AutomationPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));

// Prints the six assertion lines, shows them on the overlay and waits until pause
// is pressed or the screen is held for 2000 counted ms. Returns afterwards.
void AssertionHandler(const char* expression, const char* function, const char* file, long line);

}  // namespace nox

#define NOX_ASSERT(expr) \
  ((expr) ? (void)0 : ::nox::AssertionHandler(#expr, __func__, __FILE__, static_cast<long>(__LINE__)))
