"""What a benchmark starts ends with it, whatever ends that."""


def tied(*command):
    return ["setpriv", "--pdeathsig", "TERM", "--", *command]
