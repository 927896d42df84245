# What the benchmarks of the whole program share; they set `build` and read this file. Makes the folder
# $scratch, and ends what was started when the script ends.
scratch=$(mktemp -d)
trap 'endAll; rm -rf "$scratch"' EXIT
config=$scratch/kelo.toml
output=null

# waitFor PID FILE WORD: until the process has printed the word
waitFor() {
    until grep -q "$3" "$2"; do
        kill -0 "$1" 2>/dev/null || {
            cat "$2" "$scratch/log" >&2
            exit 1
        }
        sleep 0.1
    done
}
# started NAME: the process that was started last is to be ended under this name
started() { echo $! >"$scratch/$1.pid"; }
# end NAME: after the process has written what it counted
end() {
    pid=$(cat "$scratch/$1.pid")
    rm "$scratch/$1.pid"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
}
endAll() {
    for file in "$scratch"/*.pid; do
        [ ! -e "$file" ] || end "$(basename "$file" .pid)"
    done
}

# startService [OPTION...]: the simulated service, at $service; $config leads to it
startService() {
    : >"$scratch/service"
    "$build/bin/kelo-sim" --approve-logins "$@" >"$scratch/service" 2>"$scratch/log" &
    started service
    waitFor $! "$scratch/service" http
    service=$(sed -n 's/.*\(http:[^ ]*\).*/\1/p;q' "$scratch/service")
    sed "s,BASE,$service,g" >"$config" <<TOML
[tidal]
api_url = "BASE/v1"
image_url = "BASE/images/"
[tidal.oauth2]
device_code_url = "BASE/v1/oauth2/device_authorization"
token_url = "BASE/v1/oauth2/token"
client_id = "kelo-demo"
client_secret = "kelo-demo-secret"
TOML
}
# startStreamer [COMMAND...]: the program, at $url, inside a command that counts
startStreamer() {
    : >"$scratch/said"
    HOME=$scratch "$@" "$build/bin/kelo" serve --config "$config" --state-dir "$scratch/state" \
        --listen 127.0.0.1:0 --output $output >"$scratch/said" 2>"$scratch/log" &
    started streamer
    waitFor $! "$scratch/said" listening
    streamer=$(cat "$scratch/streamer.pid")
    url=$(sed -n 's/listening on //p' "$scratch/said")
}
login() { "$build/bin/kelo" login --server "$url" >"$scratch/login" 2>&1; }

# ask PATH [CURL_ARGUMENT...]: a call of the web API
ask() {
    path=$1
    shift
    curl -sS -H "Authorization: Bearer $token" "$@" "$service/v1/$path?countryCode=NO"
}
# makeLongPlaylist: of 10,000 tracks; $longList is its rows' address
makeLongPlaylist() {
    token=$(curl -sS -X POST "$service/sim/token" | jq -r .access_token)
    user=$(ask sessions | jq .userId)
    playlist=$(ask "users/$user/playlists" -d title=Long | jq -r .uuid)
    tag=$(ask "playlists/$playlist" -D - -o /dev/null | tr -d '\r' | sed -n 's/^ETag: *//p')
    tracks=$(ask featured/new/tracks -G -d limit=50 | jq '.items[].id')
    all=$(for round in $(seq 200); do echo "$tracks"; done | paste -sd,)
    ask "playlists/$playlist/items" -H "If-None-Match: $tag" -d "toIndex=-1&trackIds=$all" -f \
        -o "$scratch/answer"
    longList="/api/v1/rows?path=%2Ftidal%2Freq%2Fplaylists%3FcontentId%3D$playlist"
}

# instructions: that callgrind wrote to $scratch/out*
instructions() { cat "$scratch"/out* | sed -n 's/^summary: *//p; s/^totals: *//p' | head -n 1; }
# memory NAME...: of the streamer's sizes, as /proc has them, the sum in MB
memory() {
    for name; do
        sed -n "s/^$name: *//p" "/proc/$streamer/smaps_rollup" "/proc/$streamer/status"
    done | awk '{ sum += $1 } END { printf "%.1f", sum / 1024 }'
}
