#pragma once

/// The number of blocks in use on all heaps of the process; -1 when a heap cannot be walked. For a process in which no other
/// thread is at work.
int heapBlocksInUse();
