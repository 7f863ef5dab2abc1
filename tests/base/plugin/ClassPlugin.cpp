// A module loaded and unloaded by ClassTest: its descriptor must appear in
// the registry while the module is loaded, and disappear with it.
#include "vesk/base/Exception.h"

namespace plugin {

class CPluginThing : public vesk::base::CException {
 public:
  static vesk::base::CClass m_classCPluginThing;
  CPluginThing() : CException("plugin", 1) {}
  const vesk::base::CClass* GetClass() const override { return &m_classCPluginThing; }
  static vesk::base::CObject* Make() { return new CPluginThing; }
};

vesk::base::CClass CPluginThing::m_classCPluginThing("plugin::CPluginThing",
                                                     "vesk::base::CException", nullptr, nullptr,
                                                     sizeof(CPluginThing), &CPluginThing::Make);

}  // namespace plugin
