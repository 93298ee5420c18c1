// appmanager: the tablet's application manager on Linux. See Options.cpp or --help.
#include <cstdio>

#include "HostLoop.h"
#include "Options.h"

int main(int argc, char** argv) {
  appmanager::Options options;
  std::string error;
  if (!appmanager::ParseOptions(argc, argv, options, error)) {
    fprintf(stderr, "appmanager: %s\n", error.c_str());
    return 2;
  }
  if (options.help) {
    appmanager::PrintHelp(stdout);
    return 0;
  }
  if (!options.titleGiven) {
    fprintf(stderr, "appmanager: no title directory given (--title DIR; see --help)\n");
    return 2;
  }
  return appmanager::RunHost(options);
}
