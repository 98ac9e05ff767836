#pragma once

#include "BaseWindow.h"
#include "support/PrivateMember.h"

/// What a taken-over control keeps beside its handle: private, and yet its place and its value are part of the interface with
/// the control library.
struct ControlId : support::PrivateMember<ControlId, std::int32_t BaseWnd::BaseCtrlStd::*> {};
struct ControlData : support::PrivateMember<ControlData, void * BaseWnd::BaseCtrlStd::*> {};
struct PreviousProc : support::PrivateMember<PreviousProc, WNDPROC BaseWnd::BaseCtrlStd::*> {};
template struct support::Expose<ControlId, &BaseWnd::BaseCtrlStd::m_id>;
template struct support::Expose<ControlData, &BaseWnd::BaseCtrlStd::m_data>;
template struct support::Expose<PreviousProc, &BaseWnd::BaseCtrlStd::m_previousProc>;

inline std::int32_t idOf(const BaseWnd::BaseCtrlStd& control) { return control.*privateMember(ControlId()); }
inline const void* dataOf(const BaseWnd::BaseCtrlStd& control) { return control.*privateMember(ControlData()); }
inline WNDPROC previousProcOf(const BaseWnd::BaseCtrlStd& control) { return control.*privateMember(PreviousProc()); }
