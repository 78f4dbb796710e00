// The object model on the wire: late-bound COM objects over the table of members.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include "standin/members.h"

namespace mrl::standin {

/// An object for `ref`. Only an IDispatch: there is no type library, members go by name alone.
/// Every call is journalled, and passes by the faults that a test has asked for.
/// REQUIRES: `standIn` outlives the message loop, through which alone calls arrive.
Microsoft::WRL::ComPtr<IDispatch> dispatchObject(StandIn& standIn, const ObjectRef& ref);

/// What a window says to WM_GETOBJECT when its native object is asked for, `ref`; 0 is nothing.
/// Known to the journal and to the faults as "Window.NativeObject".
LRESULT answerNativeObject(StandIn& standIn, const ObjectRef& ref, WPARAM wParam);

}  // namespace mrl::standin
