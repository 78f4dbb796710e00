// Exposes the object model to COM: late-bound objects over the table of members.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include "standin/members.h"

namespace mrl::standin {

/// Creates an object for `ref`. IDispatch only: there is no type library, members are found by
/// name. Every call is journalled and subject to the faults that a test has set. REQUIRES:
/// `standIn` outlives the message loop, through which all calls arrive.
Microsoft::WRL::ComPtr<IDispatch> dispatchObject(StandIn& standIn, const ObjectRef& ref);

/// A window's answer to WM_GETOBJECT if its native object (`ref`) is requested, otherwise 0. In the
/// journal and the faults it is called "Window.NativeObject".
LRESULT answerNativeObject(StandIn& standIn, const ObjectRef& ref, WPARAM wParam);

}  // namespace mrl::standin
