namespace vekora_tests {

int functionThatIsNowhere(int);

}

/// Keeps the call in the module.
extern "C" [[gnu::visibility("default")]] int callsWhatIsNowhere()
{
    return vekora_tests::functionThatIsNowhere(1);
}
