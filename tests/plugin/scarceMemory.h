// The allocator of the whole test program, Qt's and the plug-in's calls included: allocations fail on demand.
#pragma once

namespace vxTest {

/// Fails the allocation of this number, counted from now on, and with `lasting` all that follow it. Those that Qt's
/// text stream makes for itself always succeed: it does not survive a failure, whatever its user does.
void failAllocation(long number, bool lasting);

/// Fails what would take more bytes than these in addition to those in use now.
void limitMemory(long bytes);

/// Lets allocations succeed again. @return true when one has failed
bool endScarcity();

/// Blocks in use.
long blocksInUse();

}  // namespace vxTest
