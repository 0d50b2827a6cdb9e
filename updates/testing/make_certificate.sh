#!/bin/sh
# make_certificate.sh FOLDER NAME ADDRESS [FIRST LAST]
# Makes FOLDER/NAME.pem and FOLDER/NAME.key, a server's certificate for an IP address of this machine
# and for "localhost", signed by FOLDER/authority.pem, which is made when it is not there. FIRST and
# LAST (YYYYMMDDHHMMSSZ) are when it begins and ends to be valid. What OpenSSL says of it is in
# FOLDER/log. For tests: nobody trusts these.
set -eu
folder=$1 name=$2 address=$3 first=${4:-} last=${5:-}
mkdir -p "$folder"
cd "$folder"
if ! command -v openssl >/dev/null; then
  echo "make_certificate.sh: there is no openssl (Debian: package openssl)" >&2
  exit 1
fi
exec >log 2>&1

key() { openssl genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out "$1"; }

if [ ! -f authority.pem ]; then
  key authority.key
  openssl req -new -x509 -key authority.key -days 7300 -subj "/CN=Throw-away authority" \
    -addext basicConstraints=critical,CA:TRUE -addext keyUsage=critical,keyCertSign,cRLSign \
    -out authority.pem
  : >index.txt
  cat >ca.conf <<CONF
[ca]
default_ca = throw_away
[throw_away]
database = index.txt
new_certs_dir = .
rand_serial = yes
certificate = authority.pem
private_key = authority.key
default_md = sha256
default_days = 3650
unique_subject = no
policy = any
[any]
commonName = supplied
CONF
fi
key "$name.key"
openssl req -new -key "$name.key" -subj "/CN=$name" -out "$name.csr"
cat >"$name.ext" <<EXT
basicConstraints = critical,CA:FALSE
extendedKeyUsage = serverAuth
subjectAltName = IP:$address,DNS:localhost
EXT
openssl ca -batch -notext -config ca.conf ${first:+-startdate "$first"} ${last:+-enddate "$last"} \
  -extfile "$name.ext" -in "$name.csr" -out "$name.pem"
