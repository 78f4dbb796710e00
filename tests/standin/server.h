// The stand-in as an automation server: how other programs find it and start it.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace mrl::standin {

struct Options;
struct StandIn;

/// Writes the machine's registration of these ProgIDs: this image is the program that serves them.
/// False when a ProgID isn't one that the stand-in can play, or the registry refuses.
[[nodiscard]] bool registerProgIds(const std::vector<std::wstring>& progIds);
/// Takes the registration away again; what isn't there is passed over.
void unregisterProgIds(const std::vector<std::wstring>& progIds);

/// Offers the Application object under each ProgID, as running object and as class object.
/// REQUIRES: a single-threaded apartment that outlives this.
class Server {
 public:
  Server() = default;
  Server(const Server&) = delete;
  ~Server() { withdraw(); }

  /// False when the system refuses; `standIn` then can't be reached by automation.
  [[nodiscard]] bool announce(StandIn& standIn);
  /// Makes the application to be found, or not, as the options say. References that others hold
  /// live on. False when the system refuses.
  [[nodiscard]] bool list(const Options& options);
  /// Nobody finds the application any more, and references that others hold are dead.
  void withdraw();
  /// Ends the process on the spot, as a crash does, for whoever holds or looks for the application.
  void crash();
  bool announced() const { return application != nullptr; }
  /// Null while it isn't announced.
  const Microsoft::WRL::ComPtr<IDispatch>& object() const { return application; }

 private:
  void unlist();
  void revokeClassObjects();

  Microsoft::WRL::ComPtr<IDispatch> application;
  std::vector<DWORD> activeObjects;
  std::vector<DWORD> classObjects;
};

}  // namespace mrl::standin
