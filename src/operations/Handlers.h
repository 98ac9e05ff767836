#pragma once

#include <memory>

#include "comm/CNode.h"

/// One function per task type, run by the printer's worker with the entry whose turn it is. Each releases every reference it
/// took on every way out. The result is only logged: 0 when the operation ran and was notified, 2 when the task's record is of
/// another type (nobody is notified); others are said at the function.

/// Polls the printer's state. Also 1: the caller forbids it now; nothing was called, nobody is notified.
int comm_thread_state(std::shared_ptr<comm::CNode> entry);

/// Reads whether the supplies alarm is on into the printer description. Takes no record and notifies nobody. The library's
/// result; 0 for a printer without that alarm.
int comm_thread_getAlarm(std::shared_ptr<comm::CNode> entry);

int comm_thread_getDevParam(std::shared_ptr<comm::CNode> entry);
int comm_thread_setSupplyAlarm(std::shared_ptr<comm::CNode> entry);
int comm_thread_setSleepTime(std::shared_ptr<comm::CNode> entry);
int comm_thread_setPaperAlarm(std::shared_ptr<comm::CNode> entry);
int comm_thread_setSilentMode(std::shared_ptr<comm::CNode> entry);
int comm_thread_setTimedClear(std::shared_ptr<comm::CNode> entry);

/// Reads the push-scan parameters: notifies the task alone, and only of success. The library's result.
int comm_thread_getPushscan(std::shared_ptr<comm::CNode> entry);
/// Registers for push scanning. Notifies nobody; 0 registered, 1 not.
int comm_thread_regPushscan(std::shared_ptr<comm::CNode> entry);

/// Registers the printer with the upgrade service. Notifies nobody; 0 registered, 1 not.
int comm_thread_regUpgrade(std::shared_ptr<comm::CNode> entry);

int comm_thread_printAdjust(std::shared_ptr<comm::CNode> entry);
int comm_thread_printClean(std::shared_ptr<comm::CNode> entry);
int comm_thread_printQRcode(std::shared_ptr<comm::CNode> entry);

int comm_thread_getNetwork(std::shared_ptr<comm::CNode> entry);
int comm_thread_setNetwork(std::shared_ptr<comm::CNode> entry);

int comm_thread_setAdjust(std::shared_ptr<comm::CNode> entry);

/// One step of the check for new firmware.
int comm_thread_firmNewCheck(std::shared_ptr<comm::CNode> entry);
/// Returns when the transfer has ended or the task is deleted.
int comm_thread_firmUpgrade(std::shared_ptr<comm::CNode> entry);
/// Returns when the caller has set `done` or the task is deleted.
int comm_thread_firmUpCheck(std::shared_ptr<comm::CNode> entry);

/// These two return when the manager library's job is done or the task is deleted; the first at once when the printer is in the
/// network already.
int comm_thread_getWifiList(std::shared_ptr<comm::CNode> entry);
int comm_thread_setWifiList(std::shared_ptr<comm::CNode> entry);
