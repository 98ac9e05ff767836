#pragma once

/// Resources and controls by number; the resource script reads this too.
#define IDD_PANEL 101
#define IDD_CHILD 102

#define ID_PAGE_FIRST 200  // one for each page, in the order of the tabs
#define ID_PRINTERS 250
#define ID_MESSAGE 251
#define ID_MINIMIZE 252
#define ID_CLOSE 253
#define ID_CARD_FIRST 300  // one for each printer, in the scenario's order

#define ID_STATE_READ 1001
#define ID_STATE_ALARM 1002
#define ID_STATE_PUSHSCAN 1003
#define ID_STATE_REGISTER 1004

#define ID_SETTINGS_READ 1101
#define ID_SLEEP_TIME 1102
#define ID_SLEEP_TIME_SET 1103
#define ID_PAPER_ALARM 1104
#define ID_PAPER_ALARM_SET 1105
#define ID_TIMED_CLEAR 1106
#define ID_TIMED_CLEAR_SET 1107
#define ID_SILENT_MODE 1108
#define ID_SILENT_MODE_SET 1109
#define ID_SUPPLIES_ALARM 1110
#define ID_SUPPLIES_ALARM_OFF 1111

#define ID_ALIGN_PRINT 1201
#define ID_ALIGN_SET 1202
#define ID_CORRECTION_FIRST 1203  // six
#define ID_CLEAN 1210
#define ID_QR_TEXT 1211
#define ID_QR_PRINT 1212

#define ID_NETWORK_READ 1301
#define ID_NETWORK_SET 1302
#define ID_DHCP 1303
#define ID_ADDRESS_FIRST 1304  // four

#define ID_WIFI_FIND 1401
#define ID_WIFI_NAMES 1402
#define ID_WIFI_PASSWORD 1403
#define ID_WIFI_JOIN 1404
#define ID_WIFI_CANCEL 1405

#define ID_FIRMWARE_CHECK 1501
#define ID_FIRMWARE_FILE 1502
#define ID_FIRMWARE_SEND 1503
#define ID_FIRMWARE_CANCEL 1504
#define ID_FIRMWARE_WATCH 1505
#define ID_FIRMWARE_BAR 1506
#define ID_FIRMWARE_REGISTER 1507

#define ID_LOG_REFRESH 1601
#define ID_LOG_LINES 1602

#define ID_FIELDS 1900  // a page's list of results
