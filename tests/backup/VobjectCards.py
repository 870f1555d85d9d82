"""vCards as an independent program reads and writes them, for VobjectTest.cpp.

VobjectCards.py read   reads vCards on standard input, writes JSON of what they say
VobjectCards.py write  writes a vCard of a made-up person
"""

import base64
import json
import sys

import vobject


def types_of(line):
    return sorted(word.lower() for word in line.params.get("TYPE", []))


def lines_of(card, name):
    return card.contents.get(name, [])


def read(text):
    cards = []
    for card in vobject.readComponents(text):
        cards.append({
            "name": card.fn.value,
            "family": card.n.value.family,
            "note": [line.value for line in lines_of(card, "note")],
            "nickname": [line.value for line in lines_of(card, "nickname")],
            "phones": [[types_of(line), line.value] for line in lines_of(card, "tel")],
            "emails": [[types_of(line), line.value] for line in lines_of(card, "email")],
            "websites": [line.value for line in lines_of(card, "url")],
            "addresses": [[types_of(line), line.value.street] for line in lines_of(card, "adr")],
            "organisations": [line.value for line in lines_of(card, "org")],
            "groups": [title for line in lines_of(card, "categories") for title in line.value],
            "labels": [line.value for line in lines_of(card, "x-ablabel")],
            "qq": [line.value for line in lines_of(card, "x-qq")],
            "photo": [base64.b64encode(line.value).decode() for line in lines_of(card, "photo")],
        })
    return json.dumps(cards, ensure_ascii=False)


def write():
    card = vobject.vCard()
    card.add("n").value = vobject.vcard.Name(family="Ångström", given="Anders, Jr.")
    card.add("fn").value = "Anders Ångström, Jr."
    card.add("nickname").value = "Å"
    cell = card.add("tel")
    cell.value = "+46 70 000 00 00"
    cell.type_param = "CELL"
    fax = card.add("tel")
    fax.value = "+46 8 000 00 01"
    fax.params["TYPE"] = ["WORK", "FAX"]
    mail = card.add("email")
    mail.value = "anders@example.com"
    mail.params["TYPE"] = ["INTERNET", "HOME"]
    address = card.add("adr")
    address.value = vobject.vcard.Address(street="Storgatan 1; 2 tr", city="Uppsala",
                                          code="753 20", country="Sverige")
    address.type_param = "HOME"
    card.add("org").value = ["Spektrum AB", "Ljus, färg"]
    card.add("categories").value = ["Vänner", "Fysik, optik"]
    card.add("note").value = "Första raden\nandra: a,b;c\\d " + "åäö 汉字 " * 40 + "slut"
    card.add("bday").value = "1814-08-13"
    photo = card.add("photo")
    photo.value = b"\xff\xd8\xff\xe0" + bytes(range(256))
    photo.encoding_param = "b"
    photo.type_param = "JPEG"
    return card.serialize()


if __name__ == "__main__":
    if sys.argv[1] == "read":
        sys.stdout.buffer.write(read(sys.stdin.buffer.read().decode()).encode())
    else:
        sys.stdout.buffer.write(write().encode())
