#pragma once

// What is set on every connection in the kernel's own words.

namespace halyard {

/// No delay for small packets; a peer that is gone is noticed within 60 s, whether we wait for its
/// acknowledgement or for its next word. A bad descriptor changes nothing.
void SetTcpOptions(long long descriptor);

/// Tells the peer that nothing more comes, while what it sends can still be read.
void EndSending(long long descriptor);

} // namespace halyard
