// Compiled as a file of a room, to see what the room can include.
#include KVO_INCLUDES
