// The stand-in as an automation server: how other programs find and start it.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace mrl::standin {

struct Options;
struct StandIn;

/// Registers this image machine-wide as the server of these ProgIDs. False if a ProgID isn't one
/// that the stand-in can play, or the registry fails.
[[nodiscard]] bool registerProgIds(const std::vector<std::wstring>& progIds);
/// Removes the registration; ignores what isn't registered.
void unregisterProgIds(const std::vector<std::wstring>& progIds);

/// Registers the Application object under each ProgID, as running object and as class object.
/// REQUIRES: a single-threaded apartment that outlives this.
class Server {
 public:
  Server() = default;
  Server(const Server&) = delete;
  ~Server() { withdraw(); }

  /// False if the system refuses; `standIn` is then unreachable by automation.
  [[nodiscard]] bool announce(StandIn& standIn);
  /// Lists or unlists the application, as the options say. Existing references stay valid. False if
  /// the system refuses.
  [[nodiscard]] bool list(const Options& options);
  /// Unlists the application and disconnects existing references.
  void withdraw();
  /// Terminates the process at once, like a crash.
  void crash();
  bool announced() const { return application != nullptr; }
  /// Null while not announced.
  const Microsoft::WRL::ComPtr<IDispatch>& object() const { return application; }

 private:
  void unlist();
  void revokeClassObjects();

  Microsoft::WRL::ComPtr<IDispatch> application;
  std::vector<DWORD> activeObjects;
  std::vector<DWORD> classObjects;
};

}  // namespace mrl::standin
