// The one symbol App.so exports: the device's manager calls it once to make the
// application object.
#include "GameApp.h"

__attribute__((visibility("default"))) boost::shared_ptr<CAppInterface> CreateApp(void* userData) {
  return boost::shared_ptr<CAppInterface>(new game::GameApp(userData));
}
