// A module that is built for another interface version.
extern "C" __declspec(dllexport) int acrxEntryPoint(int, void*) {
    return 0;
}

extern "C" __declspec(dllexport) int acrxGetApiVersion() {
    return 17;
}
