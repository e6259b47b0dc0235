// A library that loads and registers nothing.

extern "C" int nothingToSee()
{
    return 0;
}
