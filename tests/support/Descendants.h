#pragma once

// The processes a test leaves behind. A desktop test starts services that detach (D-Bus
// activated daemons, terminal servers, windows started with a double fork); once the test
// process is their subreaper they become its children when their parents go, and end()
// stops every one of them.
class Descendants {
public:
    // Makes this process the subreaper of everything it starts from now on.
    static void adopt();
    // Ends every child of this process (politely, then by force) and reaps it.
    static void end();
};
