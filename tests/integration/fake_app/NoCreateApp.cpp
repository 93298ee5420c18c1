// A library that is not an application: it exports no CreateApp.
extern "C" int NotAnApplication() {
  return 0;
}
