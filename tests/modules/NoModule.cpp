extern "C" __attribute__((visibility("default"))) int NoModule()
{
    return 0;
}
