#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "HostSupport.h"
#include "vesk/base/ClassManager.h"
#include "vesk/base/ClassNotFoundException.h"
#include "vesk/base/Exception.h"
#include "vesk/base/InstantiationException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/TimeoutException.h"

using namespace vesk::base;

namespace {

// Looked up during this program's static initialisation: the library's
// descriptors must already be registered before any client code runs.
const CClass* g_foundAtStartup = CClass::FindClass("vesk::base::CException");

class CUserThing : public CObject {
  VESK_DECLARE_CLASS(CUserThing);
  static CObject* Make() { return new CUserThing; }
  static CObject* MakeNothing() { return nullptr; }
};
CClass CUserThing::m_classCUserThing("test::CUserThing", "vesk::base::CObject", nullptr, nullptr,
                                     sizeof(CUserThing), &CUserThing::Make);
const CClass* CUserThing::GetClass() const { return &m_classCUserThing; }

}  // namespace

// Qualified names, bases and look-ups of the exception classes: ExceptionTest.
TEST(ClassTest, NamesBasesAndLookUps) {
  EXPECT_EQ(&CException::m_classCException, g_foundAtStartup);
  EXPECT_STREQ("CObject", CObject::m_classCObject.GetName());
  EXPECT_EQ(nullptr, CException::m_classCException.GetQualifiedBaseClassName2());
  EXPECT_EQ(nullptr, CObject::m_classCObject.GetBaseClass1());
  EXPECT_EQ(sizeof(CException), CException::m_classCException.GetSize());
  CClass noColon("NoColons", nullptr, nullptr, nullptr, 1, nullptr);
  EXPECT_STREQ("NoColons", noColon.GetName());
  // By qualified name only, and by text, not by pointer.
  EXPECT_EQ(nullptr, CClass::FindClass(nullptr));
  EXPECT_EQ(nullptr, CClass::FindClass(""));
  EXPECT_EQ(nullptr, CClass::FindClass("CException"));
  std::string copy = "vesk::base::CTimeoutException";
  EXPECT_EQ(&CTimeoutException::m_classCTimeoutException, CClass::FindClass(copy.c_str()));
  // A base registered later is found by a later call.
  CClass child("test::CLateChild", "test::CLateParent", nullptr, nullptr, 1, nullptr);
  EXPECT_EQ(nullptr, child.GetBaseClass1());
  CClass parent("test::CLateParent", nullptr, nullptr, nullptr, 1, nullptr);
  EXPECT_EQ(&parent, child.GetBaseClass1());
  EXPECT_TRUE(child.IsInstanceOf(&parent));
}

// The registry gave up its index at the first registration; descriptors come
// and go with their scope, and the most recent of one name wins.
TEST(ClassTest, RegistryFollowsDescriptorsLifetimes) {
  CClassManager* manager = static_cast<CClassManager*>(CClassManager::GetInstance());
  ASSERT_NE(nullptr, manager);
  EXPECT_EQ(0u, manager->GetIndexMode());
  unsigned int before = manager->GetCount();
  CClass first("test::CDuplicate", nullptr, nullptr, nullptr, 1, nullptr);
  {
    CClass second("test::CDuplicate", nullptr, nullptr, nullptr, 2, nullptr);
    EXPECT_EQ(before + 2, manager->GetCount());
    EXPECT_EQ(&second, CClass::FindClass("test::CDuplicate"));
  }
  EXPECT_EQ(before + 1, manager->GetCount());
  EXPECT_EQ(&first, CClass::FindClass("test::CDuplicate"));
}

TEST(ClassTest, InstancesComeFromFactoriesOnly) {
  IClassManager* manager = CClassManager::GetInstance();
  CObject* made = manager->CreateInstance("test::CUserThing");
  ASSERT_NE(nullptr, made);
  EXPECT_EQ(&CUserThing::m_classCUserThing, made->GetClass());
  delete made;
  EXPECT_EQ(nullptr, manager->CreateInstance(static_cast<const CClass*>(nullptr)));
  CClass nothing("test::CNothing", nullptr, nullptr, nullptr, 1, &CUserThing::MakeNothing);
  EXPECT_THROW(nothing.CreateNewInstance(), CMemoryException);

  try {
    CException::m_classCException.CreateNewInstance();
    ADD_FAILURE() << "no exception";
  } catch (const CInstantiationException& e) {
    EXPECT_STREQ("vesk/base/Class", e.GetSourceFile());
    EXPECT_STREQ("Attempt to instantiate an interface or an abstract class.", e.GetErrorDescription());
    EXPECT_EQ(nullptr, e.GetMessage());
    EXPECT_STREQ("vesk::base::CException", static_cast<const char*>(e.GetClassName()));
  }
  try {
    manager->CreateInstance("test::CMissing");
    ADD_FAILURE() << "no exception";
  } catch (const CClassNotFoundException& e) {
    EXPECT_STREQ("vesk/base/ClassManager", e.GetSourceFile());
    EXPECT_STREQ("The specified class is not found.", e.GetErrorDescription());
    EXPECT_STREQ("test::CMissing", static_cast<const char*>(e.GetClassName()));
  }
}

// A module's descriptors join the registry when it is loaded and leave it
// when it is unloaded.
TEST(ClassTest, ModuleLoadRegistersAndUnloadRemovesDescriptors) {
  EXPECT_EQ(nullptr, CClass::FindClass("plugin::CPluginThing"));
  void* module = vesk_test::LoadModule(VESK_TEST_PLUGIN_PATH);
  ASSERT_NE(nullptr, module);
  const CClass* cls = CClass::FindClass("plugin::CPluginThing");
  ASSERT_NE(nullptr, cls);
  EXPECT_TRUE(cls->IsInstanceOf(&CException::m_classCException));
  CObject* made = cls->CreateNewInstance();
  ASSERT_NE(nullptr, made);
  EXPECT_EQ(cls, made->GetClass());
  delete made;
  ASSERT_TRUE(vesk_test::UnloadModule(module));
  EXPECT_EQ(nullptr, CClass::FindClass("plugin::CPluginThing"));
}
