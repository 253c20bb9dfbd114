#!/bin/bash
# wine.sh WINE PROGRAM: whoever goes by the status learns each time that a program crashed.
for ((k = 0; k < 20; ++k)); do
    "$1" "$2"
    status=$?
    if [ $status != 5 ]; then # the lowest byte of STATUS_ACCESS_VIOLATION
        echo "crashed, and ended with $status"
        exit 1
    fi
done
