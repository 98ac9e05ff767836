#pragma once

/// What `module_plugin.dll` exports: adds a repeating task, stops the module, and returns true when that has ended everything
/// that it started; only then may the library be unloaded.
extern "C" bool useModule();
using UseModule = decltype(&useModule);
