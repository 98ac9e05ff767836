# shellcheck shell=bash disable=SC2034 # the tests read what is set here
# What the tests of the tools share: source it.
failures=0

# expect NAME EXIT-CODE COMMAND... -- TEXT...: runs the command and looks for each TEXT in what it prints, which stays in
# `output`.
expect() {
  local name=$1 code=$2 command=() actual text problem=''
  shift 2
  while [ $# -gt 0 ] && [ "$1" != -- ]; do
    command+=("$1")
    shift
  done
  shift
  output=$("${command[@]}" 2>&1)
  actual=$?
  [ "$actual" -eq "$code" ] || problem="exit code $actual instead of $code"
  for text in "$@"; do [[ $output == *"$text"* ]] || problem+=" no \"$text\""; done
  if [ -n "$problem" ]; then
    printf 'FAILED %s:%s in:\n%s\n' "$name" " $problem" "$output"
    failures=$((failures + 1))
  else
    printf 'passed %s\n' "$name"
  fi
}
