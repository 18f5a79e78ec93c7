// The drive link of a host: its class and interface named in the registry, called by its table of methods.
#include <gmock/gmock.h>

#include <array>
#include <utility>

#include "backends/win32/com/class_factory.h"
#include "backends/win32/com/com_error.h"
#include "backends/win32/com/com_ref.h"
#include "backends/win32/com/registration.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "drive/drive_models.h"
#include "links/com/com_drive_link.h"

#include <chart_project.h>

namespace chartproject::testing {
namespace {

// Ids of the tests' own.
constexpr GUID kHostClass = {0x5a1f4e0c, 0x7d0a, 0x4a52, {0x9c, 0x11, 0x20, 0x6e, 0x3f, 0x9d, 0x81, 0x01}};
constexpr GUID kHostInterface = {0x5a1f4e0c, 0x7d0a, 0x4a52, {0x9c, 0x11, 0x20, 0x6e, 0x3f, 0x9d, 0x81, 0x02}};
constexpr GUID kNobody = {0x5a1f4e0c, 0x7d0a, 0x4a52, {0x9c, 0x11, 0x20, 0x6e, 0x3f, 0x9d, 0x81, 0x03}};

/// A host's link: after those of IDispatch its eight operations in the host's order. It writes down what it is given.
class HostLink final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, kHostInterface);
    *object = known ? this : nullptr;
    references += known ? 1 : 0;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  virtual HRESULT STDMETHODCALLTYPE SetP210Value(short* value, short* reply) {
    return Answer("SetP210Value", {*value}, nullptr, reply, 210);
  }
  virtual HRESULT STDMETHODCALLTYPE SetP529Value(short* value, short* reply) {
    return Answer("SetP529Value", {*value}, nullptr, reply, 529);
  }
  virtual HRESULT STDMETHODCALLTYPE ReadParameter(short* address, BSTR* model, short* number, short* unit,
                                                  short* status) {
    return Answer("ReadParameter ", {*address, *number, *unit}, *model, status, 0);
  }
  virtual HRESULT STDMETHODCALLTYPE ProbeParameter(short* address, BSTR* model, short* number, short* unit,
                                                   short* status) {
    return Answer("ProbeParameter ", {*address, *number, *unit}, *model, status, -8);
  }
  virtual HRESULT STDMETHODCALLTYPE OpenLink(short* result) {
    Answer("OpenLink", {}, nullptr, result, 1);
    return FAILED(opening) ? win32::PublishError(RunTimeError(opening, "The line is in use"), kHostInterface) : S_OK;
  }
  virtual HRESULT STDMETHODCALLTYPE CloseLink(VARIANT* result) {
    calls += "CloseLink, ";
    result->vt = VT_UNKNOWN;
    result->punkVal = this;
    AddRef();
    return S_OK;
  }
  virtual HRESULT STDMETHODCALLTYPE GetValue(double* value) {
    *value = 12.5;
    return S_OK;
  }
  virtual HRESULT STDMETHODCALLTYPE GetText(BSTR* text) {
    *text = SysAllocString(L"12,5");
    return S_OK;
  }

  std::string calls;
  HRESULT opening = S_OK;
  long references = 0;

 private:
  HRESULT Answer(const std::string& name, std::initializer_list<short> numbers, BSTR model, short* out, int answer) {
    calls += name + win32::BstrToUtf8(model);
    for (const short number : numbers) calls += " " + std::to_string(number);
    calls += ", ";
    *out = static_cast<short>(answer);
    return S_OK;
  }
};

class HostsDriveLink : public ::testing::Test {
 protected:
  void SetUp() override {
    Name(win32::IdText(kHostClass), win32::IdText(kHostInterface));
    const auto make = [this]() -> IUnknown* {
      link.AddRef();
      return &link;
    };
    win32::GetFactory(kHostInterface, make, IID_IUnknown, factory_.ReceiveUntyped());
    CoRegisterClassObject(kHostClass, factory_.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
  }
  void TearDown() override {
    CoRevokeClassObject(cookie_);
    Name(win32::IdText(win32::StandInClass()), win32::IdText(win32::DriveLinkInterface()));
    EXPECT_EQ(link.references, 0) << "the link is released";
  }
  static void Name(const std::wstring& classId, const std::wstring& interfaceId) {
    win32::OwnedKey key;
    const std::wstring path = L"Software\\Classes\\CLSID\\" + win32::IdText(CLSID_ChartClass);
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, key.Receive()), ERROR_SUCCESS);
    win32::WriteRegistryText(key.Get(), win32::kDriveLinkClassValue, classId);
    win32::WriteRegistryText(key.Get(), win32::kDriveLinkInterfaceValue, interfaceId);
  }
  HostLink link;
  LinkWait wait;

 private:
  win32::ComRef<IUnknown> factory_;
  DWORD cookie_ = 0;
};

TEST_F(HostsDriveLink, IsCalledByItsTableWithEverythingByReference) {
  {
    const auto made = win32::ComDriveLinkFactory(CLSID_ChartClass, nullptr).Create(wait);
    made->OpenLink();
    made->SetP210Value(-210);
    made->SetP529Value(32767);
    EXPECT_TRUE(made->ReadParameter(30, "K", 999, 76).Answered());
    EXPECT_EQ(made->ProbeParameter(1, "\xC3\xA7", 2, 3), (ReadOutcome{ReadFailure::kStatus, "-8"}));
    EXPECT_EQ(made->GetValue(), 12.5);
    EXPECT_EQ(made->GetText(), "12,5");
    made->CloseLink();
  }
  EXPECT_EQ(link.calls,
            "OpenLink, SetP210Value -210, SetP529Value 32767, ReadParameter K 30 999 76, "
            "ProbeParameter \xC3\xA7 1 2 3, CloseLink, ");
}

TEST_F(HostsDriveLink, TheStandInAnswersForSimulatedDrives) {
  Name(win32::IdText(win32::StandInClass()), win32::IdText(win32::DriveLinkInterface()));
  const auto made = win32::ComDriveLinkFactory(CLSID_ChartClass, nullptr).Create(wait);
  made->OpenLink();
  EXPECT_TRUE(made->ReadParameter(1, ModelCode("KRA-09"), 3, 25).Answered());
  const std::string text = made->GetText();
  EXPECT_EQ(made->ProbeParameter(31, ModelCode("KRA-09"), 3, 25).failure, ReadFailure::kNoAnswer)
      << "there is no drive";
  made->CloseLink();
  EXPECT_NE(text.find_first_of("0123456789"), std::string::npos) << text;
}

TEST_F(HostsDriveLink, OnesThatFailEndTheCallWithTheirError) {
  const std::wstring goodClass = win32::IdText(kHostClass);
  const std::wstring goodInterface = win32::IdText(kHostInterface);
  const struct {
    std::wstring classId;
    std::wstring interfaceId;
    HRESULT opening;
    unsigned error;
    const char* text;
  } cases[] = {
      {win32::IdText(kNobody), goodInterface, S_OK, 0x800A01AD,
       "206E3F9D8103} cannot be created: the class is not registered"},
      {L"COM1", goodInterface, S_OK, 0x800A01AD, "The registry names a drive link that is not a class id: COM1"},
      {goodClass, win32::IdText(kNobody), S_OK, 0x800A01AD,
       "206E3F9D8101} cannot be created: it has no interface {5A1F4E0C"},
      {goodClass, goodInterface, E_ACCESSDENIED, 0x80070005, "OpenLink: The line is in use"},
      {goodClass, goodInterface, win32::ErrorCode(57), 0x800A0039, "OpenLink: The line is in use"},
  };
  for (const auto& each : cases) {
    Name(each.classId, each.interfaceId);
    link.opening = each.opening;
    win32::ComRef<_ChartClass> component;
    ASSERT_EQ(
        CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass, component.ReceiveUntyped()),
        S_OK);
    const HRESULT result = component->AcquireVar();
    EXPECT_EQ(static_cast<unsigned>(result), each.error);
    EXPECT_THAT(win32::FailureText(result), ::testing::HasSubstr(each.text));
  }
  EXPECT_EQ(link.calls, "OpenLink, OpenLink, ") << "what was not opened is not closed";
}

}  // namespace
}  // namespace chartproject::testing
