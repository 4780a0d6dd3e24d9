// A shared library that is not a Qt plug-in: it carries no plug-in metadata.
extern "C" int notAPluginAnswer()
{
    return 42;
}
