#pragma once

/// What `module_plugin.dll` exports, beside `endTasks`: the part of an application that talks to printers.
extern "C" {
/// Makes two printers and adds tasks to both. True once one printer is polled and the other one hangs in a library call, with
/// more tasks behind it.
bool beginTasks();
/// Makes a printer and adds a firmware transfer that takes days. True once it is under way.
bool beginTransfer();
/// Makes a printer and adds a task that its worker waits five seconds with, whoever wakes it: the last NPA run of a new list
/// counts as twenty minutes old, and the printer's interval is five seconds longer.
void beginWait();
/// Makes a printer and adds a task whose window passes each notice on to a window of the calling thread. True once somebody
/// waits there for an answer.
bool beginMessages();
/// Lets the call return.
void releaseCall();
/// As `endTasks`, for objects.
void dropObjects();
}
