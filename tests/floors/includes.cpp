// Compiled as a file of a room, which sees the first and not the second.
#include KVO_ALLOWED
#include KVO_FORBIDDEN
